#include "platform/PlatformTilprjFileExtractor.h"

#include "archive/MemberSource.h"
#include "hardware/PlatformFiles.h"
#include "hardware/TileProject.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "util/HUTFile.h"

bool PlatformTilprjFileExtractor::extract(const std::string& member, const std::string& destination) const {
    return extract(member, platform_.getPlatformFile(), destination);
}

bool PlatformTilprjFileExtractor::extract(const std::string& member, const std::string& archive,
                                          const std::string& destination) const {
    return HUTFile::isFile(archive) &&
           hardware::copyMember(archive, hardware::memberOf(platform_, member), destination);
}

bool PlatformTilprjFileExtractor::extractTILPRJFile(const std::string& destination) const {
    if (HUTFile::isFile(destination)) return true;
    for (const char* type : {"TILPRJ", "ME_ARCHIVE"})
        if (const std::string member = platform_.getFile(type); !member.empty() && extract(member, destination))
            return true;
    return false;
}

bool PlatformTilprjFileExtractor::extractFile(const std::string& path, const std::string& destination) const {
    try {
        const auto project = hardware::openProject(platform_);
        return project && hardware::copyMember(*project, hardware::memberOf(platform_, path), destination);
    } catch (const HEXAll&) {  // the project is not an archive, or there is no temporary directory
        return false;
    }
}
