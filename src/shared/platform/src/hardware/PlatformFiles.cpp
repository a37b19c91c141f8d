#include "hardware/PlatformFiles.h"

#include "hardware/MemberNames.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "zip/Archive.h"
#include "zip/Destination.h"
#include "zip/HUTZip.h"
#include "zip/MemberName.h"

namespace hardware {

bool hasMember(const std::string& archive, const std::string& member) {
    return HUTZip::containsFile(archive, member);
}

std::string memberText(const std::string& path, const std::string& name) {
    try {
        const zip::Archive archive(path);
        const zip::Member* member = archive.find(name);
        return member ? archive.read(*member) : std::string();
    } catch (const HEXAll&) {
        return {};
    }
}

bool copyMember(const std::string& path, const std::string& name, const std::string& destination) {
    try {
        const zip::Archive archive(path);
        const zip::Member* member = archive.find(name);
        if (!member) return false;
        if (const std::string parent = HUTFile::getParent(destination); !parent.empty())
            HUTFile::mkDirRecursive(parent);
        zip::OutputBudget budget;
        zip::writeDestination(destination, [&](const auto& take) { archive.copyTo(*member, take, budget); });
        return true;
    } catch (const HEXAll&) {
        return false;
    }
}

std::string unpackDirectory(const std::string& archive, const std::string& directory) {
    if (directory.empty() || !HUTFile::exists(archive) || !zip::memberNameFault(directory, false).empty()) return {};
    try {
        const std::string base = HUTEnv::getJUNTmpDir();
        HUTFile::ensureWritableDirectory(base);
        HUTZip::uncompressDir(archive, directory, base, true);
        const std::string result = base + HUTFile::getDirSeparator() + directory;
        return HUTFile::exists(result) ? result : std::string();
    } catch (const HEXAll&) {
        return {};
    }
}

std::string memberOf(const HTEQHardwarePlatform& platform, const std::string& member) {
    return platform.isChildHardwareEmuPlatform() ? belowHwEmu(member) : member;
}

bool copyFileOfType(const HTEQHardwarePlatform& platform, const std::string& type, const std::string& destination) {
    const std::string member = platform.getFile(type);
    return !member.empty() && copyMember(platform.getPlatformFile(), memberOf(platform, member), destination);
}

}  // namespace hardware
