#include "ReadFile.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSoftwarePlatformXMLReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    readModel<HTEQSoftwarePlatformXMLReader, HTEQSoftwarePlatform>(fileOf(data, size));
    return 0;
}
