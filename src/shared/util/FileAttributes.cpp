#include "util/FileAttributes.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "text/HSTStringUtils.h"

namespace util {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
/// The maximum size of a value, and of the list of names.
constexpr std::size_t kMaxSize = 65536;

bool isWithout(int error) { return error == ENODATA || error == ENOTSUP || error == ENOSYS; }

/// All attributes except the access control list. Those that only the system may set are left out; `isRestricted` is
/// set if such a one may deny access.
int copyOthers(int from, int to, bool& isRestricted) {
    std::string names(kMaxSize, '\0'), value(kMaxSize, '\0');
    const ssize_t listed = ::flistxattr(from, names.data(), names.size());
    if (listed < 0) return isWithout(errno) ? 0 : errno;
    names.resize(static_cast<std::size_t>(listed));
    for (const std::string& name : HSTStringUtils::split(names, '\0')) {
        if (name.empty() || name == kAccessList) continue;
        const ssize_t size = ::fgetxattr(from, name.c_str(), value.data(), value.size());
        if (size >= 0 && ::fsetxattr(to, name.c_str(), value.data(), static_cast<std::size_t>(size), 0) == 0)
            continue;
        if (size >= 0 && name.starts_with("user.")) return errno;
        if (name.starts_with("system.")) isRestricted = true;
    }
    return 0;
}

/// Replaces the list that the directory may have given to the new file. A list names the file's group, so it is not
/// copied to a file of another one.
int copyAccessList(int from, int to, bool mayCopy, bool& isRestricted) {
    std::string list(kMaxSize, '\0');
    const ssize_t size = ::fgetxattr(from, kAccessList, list.data(), list.size());
    if (size < 0 && !isWithout(errno)) return errno;
    if (size >= 0 && mayCopy && ::fsetxattr(to, kAccessList, list.data(), static_cast<std::size_t>(size), 0) == 0)
        return 0;
    if (size >= 0) isRestricted = true;
    return ::fremovexattr(to, kAccessList) == 0 || isWithout(errno) ? 0 : errno;
}

/// For another group: what everybody has, and for everybody what the group has.
mode_t withoutGroup(mode_t mode) {
    const mode_t common = (mode >> 3) & mode & 07;
    return (mode & 0700) | common << 3 | common;
}

}  // namespace

int copyAttributes(int from, int to) {
    struct stat old {};
    if (::fstat(from, &old) != 0) return errno;
    const bool hasOwner = ::fchown(to, old.st_uid, old.st_gid) == 0;
    const bool hasGroup = hasOwner || ::fchown(to, static_cast<uid_t>(-1), old.st_gid) == 0;
    bool isRestricted = false;
    if (const int error = copyOthers(from, to, isRestricted)) return error;
    if (const int error = copyAccessList(from, to, hasGroup, isRestricted)) return error;
    // Only the old owner could grant set-user-ID rights.
    mode_t mode = old.st_mode & (hasOwner || (hasGroup && old.st_uid == ::geteuid()) ? 07777 : 0777);
    if (!hasGroup) mode = withoutGroup(mode);
    if (isRestricted) mode &= 0700;
    return ::fchmod(to, mode) == 0 ? 0 : errno;
}

}  // namespace util
