#include "hardware/TileProject.h"

#include <boost/property_tree/json_parser.hpp>
#include <optional>

#include "archive/ArchiveSource.h"
#include "hardware/PlatformFiles.h"
#include "json/JsonFile.h"
#include "json/JsonKeys.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQTilPartitionsJsonReader.h"
#include "platform/PlatformTilprjFileExtractor.h"
#include "util/PrivateTmpDir.h"
#include "zip/ExtractionDirectory.h"
#include "zip/FileBytes.h"
#include "zip/MemberName.h"

namespace hardware {

namespace {

struct ProjectFile {
    std::string name;  ///< for messages: archive, project and path
    std::string text;
};

/// No value if it cannot be read.
std::optional<ProjectFile> fileOfProject(const HTEQHardwarePlatform& platform, const std::string& path) {
    try {
        const auto project = openProject(platform);
        const std::string member = memberOf(platform, path);
        auto text = project ? project->read(member) : std::nullopt;
        if (!text) return std::nullopt;
        return ProjectFile{project->name() + "!" + member, std::move(*text)};
    } catch (const HEXAll&) {  // not an archive, or no temporary directory
        return std::nullopt;
    }
}

void takeMetaData(const json::Document& document, std::map<std::string, std::string>& out) {
    for (const json::Node item : document.root().find("MetaData"))
        out[item.find("name").data()] = item.find("value").text();
}

}  // namespace

std::shared_ptr<const archive::MemberSource> openProject(const HTEQHardwarePlatform& platform) {
    const std::string listed = platform.getFile("TILPRJ");
    if (listed.empty() || !zip::memberNameFault(listed, true).empty()) return nullptr;
    if (const auto directory = util::madeTmpDir())
        if (auto there = zip::ExtractionDirectory(*directory).openOwnFile(listed); there.isOpen())
            return std::make_shared<archive::ArchiveSource>(std::make_unique<zip::Archive>(
                std::make_unique<zip::FileBytes>(std::move(there)), *directory + "/" + listed));
    const auto outer = archive::open(platform.getPlatformFile());
    for (const char* type : {"TILPRJ", "ME_ARCHIVE"})
        if (const std::string member = platform.getFile(type); !member.empty())
            if (auto project = outer->openNested(memberOf(platform, member))) return project;
    return nullptr;
}

bool copyProjectFile(const HTEQHardwarePlatform& platform, const std::string& path, const char* oldType,
                     const std::string& destination) {
    return PlatformTilprjFileExtractor(platform).extractFile(path, destination) ||
           (oldType && copyFileOfType(platform, oldType, destination));
}

HSTVector<HTEQTilPartition> readProjectPartitions(const HTEQHardwarePlatform& platform) {
    const auto file = fileOfProject(platform, "tilarchive/arch/til_partition.json");
    if (!file) return {};
    return HTEQTilPartitionsJsonReader::readText(file->text, file->name);
}

std::string projectInterfaceId(const HTEQHardwarePlatform& platform) {
    const auto file = fileOfProject(platform, "tilarchive/morwen/tilprj_meta_data.json");
    std::map<std::string, std::string> entries;
    if (!file) return {};
    try {
        json::Document document;
        document.parse(file->text, file->name);
        takeMetaData(document, entries);
    } catch (const boost::property_tree::json_parser_error&) {
        return {};
    }
    return entries["TIL_PL_INTF_ID_STR"];
}

void readMetaData(const std::string& file, std::map<std::string, std::string>& out) {
    json::Document document;
    json::parseFile(file, document);
    takeMetaData(document, out);
}

}  // namespace hardware
