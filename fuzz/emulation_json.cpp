#include <boost/property_tree/json_parser.hpp>

#include "ReadFile.h"
#include "platform/HTEQEmulationExtMetaJsonReader.h"
#include "platform/HTEQEmulationJsonReader.h"
#include "platform/HTEQEmulations.h"

namespace {

template <class Reader>
void read(const std::string& file) {
    HTEQEmulations emulations;
    Reader reader(file, &emulations);
    try {
        reader.isJsonValid();
        reader.parseJson();
    } catch (const boost::property_tree::json_parser_error&) {
        require(emulations.getEmulations().empty() && emulations.getFeatureRoms().empty(),
                "invalid JSON gives nothing");
    } catch (const boost::property_tree::ptree_error&) {  // a key is missing
    }
}

}  // namespace

/// The text as emulation metadata and as extended metadata.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file = fileOf(data, size);
    read<HTEQEmulationJsonReader>(file);
    read<HTEQEmulationExtMetaJsonReader>(file);
    return 0;
}
