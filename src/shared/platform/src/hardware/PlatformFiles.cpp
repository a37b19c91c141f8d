#include "hardware/PlatformFiles.h"

#include "archive/MemberSource.h"
#include "archive/PlatformArchive.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "zip/HUTZip.h"
#include "zip/MemberName.h"

namespace hardware {

namespace {

using archive::PlatformArchive;

/// The result of `call`; `failed` if the archive or the file system causes an exception.
template <class Call, class Result>
Result orElse(Result failed, Call call) {
    try {
        return call();
    } catch (const HEXAll&) {
        return failed;
    }
}

}  // namespace

bool hasMember(const std::string& archive, const std::string& member) {
    return orElse(false, [&] { return PlatformArchive(archive).contains(member); });
}

std::string memberText(const std::string& archive, const std::string& member) {
    return orElse(std::string(), [&] { return PlatformArchive(archive).textOrWarning(member).value_or(""); });
}

bool copyMember(const archive::MemberSource& source, const std::string& member, const std::string& destination) {
    return orElse(false, [&] {
        if (!source.contains(member)) return false;  // without making a directory
        if (const std::string parent = HUTFile::getParent(destination); !parent.empty())
            HUTFile::mkDirRecursive(parent);
        return source.copyOut(member, destination);
    });
}

bool copyMember(const std::string& archive, const std::string& member, const std::string& destination) {
    return orElse(false, [&] { return copyMember(PlatformArchive(archive).source(), member, destination); });
}

std::string unpackDirectory(const std::string& archive, const std::string& directory) {
    if (directory.empty() || !HUTFile::exists(archive) || !zip::memberNameFault(directory, false).empty()) return {};
    return orElse(std::string(), [&] {
        const std::string base = HUTEnv::getJUNTmpDir();
        HUTFile::ensureWritableDirectory(base);
        if (!HUTZip::uncompressDir(archive, directory, base, true)) return std::string();  // something else is there
        const std::string result = base + HUTFile::getDirSeparator() + directory;
        return HUTFile::exists(result) ? result : std::string();
    });
}

std::string memberOf(const HTEQHardwarePlatform& platform, const std::string& member) {
    return platform.isChildHardwareEmuPlatform() ? platform.getHwEmuDir() + "/" + member : member;
}

bool copyFileOfType(const HTEQHardwarePlatform& platform, const std::string& type, const std::string& destination) {
    const std::string member = platform.getFile(type);
    return !member.empty() && copyMember(platform.getPlatformFile(), memberOf(platform, member), destination);
}

}  // namespace hardware
