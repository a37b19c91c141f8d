#include "ReadFile.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformXMLReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    readModel<HTEQPlatformXMLReader, HTEQPlatform>(fileOf(data, size));
    return 0;
}
