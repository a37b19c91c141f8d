#include "EmulationJson.h"
#include "platform/HTEQEmulationJsonReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    readEmulation<HTEQEmulationJsonReader>(data, size);
    return 0;
}
