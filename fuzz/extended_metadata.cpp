#include "EmulationJson.h"
#include "platform/HTEQEmulationExtMetaJsonReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    readEmulation<HTEQEmulationExtMetaJsonReader>(data, size);
    return 0;
}
