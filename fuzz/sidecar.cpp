#include <boost/property_tree/json_parser.hpp>
#include <cstdint>
#include <string_view>

#include "Check.h"
#include "Quiet.h"
#include "msg/HEXAll.h"
#include "platform/HTEQEmulationExtMetaJsonReader.h"
#include "platform/HTEQEmulationJsonReader.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"
#include "platform/HTEQTilPartition.h"
#include "platform/HTEQTilPartitionsJsonReader.h"
#include "support/Scratch.h"

namespace {

using boost::property_tree::json_parser_error;
using boost::property_tree::ptree_error;

template <class Reader>
void readJson(const std::string& file) {
    HTEQEmulations emulations;
    Reader reader(file, &emulations);
    try {
        reader.isJsonValid();
        reader.parseJson();
    } catch (const json_parser_error&) {
        require(emulations.getEmulations().empty() && emulations.getFeatureRoms().empty(),
                "nothing comes of what is no JSON");
    } catch (const ptree_error&) {  // a key is missing
    }
}

void readXml(const std::string& file) {
    HTEQEmulations emulations;
    try {
        HTEQEmulationXMLReader(file, &emulations).parseXml();
    } catch (const HXMLException&) {
        require(emulations.getEmulations().empty(), "nothing comes of a document that is not valid");
    }
}

void readPartitions(const std::string& file) {
    try {
        HTEQTilPartitionsJsonReader::read(file);
    } catch (const HEXAlgException&) {  // no JSON
    }
}

}  // namespace

/// The text as each of the files that stand beside a platform's archive: emulation metadata in its two forms,
/// extended metadata, partitions.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string file = scratch.put("input", {reinterpret_cast<const char*>(data), size});
    readXml(file);
    readJson<HTEQEmulationJsonReader>(file);
    readJson<HTEQEmulationExtMetaJsonReader>(file);
    readPartitions(file);
    return 0;
}
