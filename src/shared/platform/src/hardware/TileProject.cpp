#include "hardware/TileProject.h"

#include <boost/property_tree/json_parser.hpp>

#include "hardware/PlatformFiles.h"
#include "json/JsonFile.h"
#include "json/JsonKeys.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQTilPartitionsJsonReader.h"
#include "platform/PlatformTilprjFileExtractor.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"

namespace hardware {

namespace {

/// A file of the project in the temporary directory, for as long as this object lives.
class TemporaryCopy {
public:
    TemporaryCopy(const HTEQHardwarePlatform& platform, const std::string& path, const std::string& name) {
        try {
            const std::string file = HUTEnv::getJUNTmpDir() + "/" + name;
            HUTFile::rm(file);  // a link of that name is not to be written through
            if (PlatformTilprjFileExtractor(platform).extractFile(path, file)) file_ = file;
        } catch (const HEXAll&) {
            // No temporary directory: no copy.
        }
    }
    ~TemporaryCopy() {
        if (!file_.empty()) HUTFile::rm(file_);
    }
    TemporaryCopy(const TemporaryCopy&) = delete;
    TemporaryCopy& operator=(const TemporaryCopy&) = delete;

    /// Empty when the file could not be had.
    const std::string& file() const { return file_; }

private:
    std::string file_;
};

}  // namespace

bool copyProjectFile(const HTEQHardwarePlatform& platform, const std::string& path, const char* oldType,
                     const std::string& destination) {
    return PlatformTilprjFileExtractor(platform).extractFile(path, destination) ||
           (oldType && copyFileOfType(platform, oldType, destination));
}

HSTVector<HTEQTilPartition> readProjectPartitions(const HTEQHardwarePlatform& platform) {
    // One partition in the project's name for the file, several in ours.
    const TemporaryCopy copy(platform, "tilarchive/arch/til_partition.json", "til_partitions.json");
    return HTEQTilPartitionsJsonReader::read(copy.file());
}

std::string projectInterfaceId(const HTEQHardwarePlatform& platform) {
    const TemporaryCopy copy(platform, "tilarchive/morwen/tilprj_meta_data.json", "tilprj_meta_data.json");
    std::map<std::string, std::string> entries;
    try {
        if (!copy.file().empty()) platform.parseMetaData(copy.file(), entries);
    } catch (const boost::property_tree::json_parser_error&) {
        return {};
    }
    return entries["TIL_PL_INTF_ID_STR"];
}

void readMetaData(const std::string& file, std::map<std::string, std::string>& out) {
    json::ptree document;
    json::parseFile(file, document);
    const auto list = document.find("MetaData");
    if (list == document.not_found()) return;
    for (const auto& [none, item] : list->second) out[json::textAt(item, "name")] = json::textAt(item, "value");
}

}  // namespace hardware
