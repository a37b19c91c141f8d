#include "platform/PlatformTilprjFileExtractor.h"

#include <sys/stat.h>
#include <unistd.h>

#include "hardware/PlatformFiles.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "zip/MemberName.h"

namespace {

/// Whether the file that is there can only have been put there by this user: no link, no second name elsewhere.
bool isOwnFile(const struct stat& status) {
    return S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == geteuid();
}

}  // namespace

PlatformTilprjFileExtractor::~PlatformTilprjFileExtractor() { removeProject_(); }

void PlatformTilprjFileExtractor::removeProject_() {
    if (ours_) HUTFile::rm(project_);
    ours_ = false;
}

bool PlatformTilprjFileExtractor::extract_(const std::string& member, const std::string& archive,
                                           const std::string& destination) const {
    return HUTFile::isFile(archive) &&
           hardware::copyMember(archive, hardware::memberOf(platform_, member), destination);
}

bool PlatformTilprjFileExtractor::extractTILPRJFile(const std::string& destination) const {
    if (HUTFile::isFile(destination)) return true;
    for (const char* type : {"TILPRJ", "ME_ARCHIVE"}) {
        const std::string member = platform_.getFile(type);
        if (!member.empty() && extract_(member, platform_.getPlatformFile(), destination)) return true;
    }
    return false;
}

bool PlatformTilprjFileExtractor::provideProject_() {
    const std::string member = platform_.getFile("TILPRJ");
    if (member.empty() || !zip::memberNameFault(member, true).empty()) return false;
    const std::string path = HUTEnv::getJUNTmpDir() + "/" + member;
    struct stat status;
    if (lstat(path.c_str(), &status) == 0) {
        project_ = path;
        return isOwnFile(status);
    }
    if (!extractTILPRJFile(path)) return false;
    project_ = path;
    ours_ = true;
    return true;
}

bool PlatformTilprjFileExtractor::extractFile(const std::string& path, const std::string& destination) {
    try {
        const bool done = provideProject_() && extract_(path, project_, destination);
        removeProject_();
        return done;
    } catch (const HEXAll&) {  // no temporary directory
        return false;
    }
}
