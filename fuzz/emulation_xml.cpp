#include "ReadFile.h"
#include "msg/HEXAll.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HTEQEmulations emulations;
    try {
        HTEQEmulationXMLReader(fileOf(data, size), &emulations).parseXml();
    } catch (const HXMLException&) {
        require(emulations.getEmulations().empty(), "nothing comes of a document that is not valid");
    }
    return 0;
}
