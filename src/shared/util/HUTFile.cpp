#include "util/HUTFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "util/RemoveTree.h"
#include "util/WithoutLinks.h"

namespace fs = std::filesystem;

namespace {

/// The system would use the text before the NUL as the path.
bool hasNul(const std::string& path) { return path.find('\0') != std::string::npos; }

// What destructors call does not allocate: asking for the type, and removing.

/// What the name leads to, as S_IFREG and the like; 0 if that cannot be said.
mode_t typeOf(const std::string& path) {
    struct stat status {};
    return !hasNul(path) && ::stat(path.c_str(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

/// Whether nothing has this name, not even a dangling link.
bool isGone(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

std::string withoutEndSeparator(std::string text) {
    while (text.size() > 1 && text.back() == '/') text.pop_back();
    return text;
}

}  // namespace

bool HUTFile::exists(const std::string& path) { return typeOf(path) != 0; }
bool HUTFile::isFile(const std::string& path) { return typeOf(path) == S_IFREG; }
bool HUTFile::isDir(const std::string& path) { return typeOf(path) == S_IFDIR; }

std::string HUTFile::getExt(const std::string& path) {
    const std::string extension = fs::path(path).extension().native();
    return extension.empty() ? extension : extension.substr(1);
}

std::string HUTFile::getParent(const std::string& path) {
    if (path.empty()) return {};
    const auto separator = path.find_last_of('/');
    if (separator == std::string::npos) return ".";
    return withoutEndSeparator(path.substr(0, separator + 1));
}

std::string HUTFile::getCanonicalName(const std::string& path) {
    if (path.empty()) return {};
    std::error_code error;
    const std::string absolute = fs::absolute(path, error);
    if (error) return path;  // the working directory has been removed
    const std::string name = util::withoutDots(absolute);
    if (hasNul(name) || !util::mayFollowLinks(name)) return util::withoutParents(name);
    return util::withoutLinks(name, [](std::uint64_t names) { Budget::spend(Cost::names, names); });
}

void HUTFile::mkDirRecursive(const std::string& path) {
    std::error_code error;
    if (hasNul(path))
        error = std::make_error_code(std::errc::invalid_argument);
    else
        fs::create_directories(path, error);
    if (error || !isDir(path))
        throw HEXUserException("directory '" + path +
                               "' could not be made: " + (error ? error.message() : "something else has this name"));
}

void HUTFile::ensureWritableDirectory(const std::string& path) {
    mkDirRecursive(path);
    if (::access(path.c_str(), W_OK | X_OK) != 0) throw HEXUserException("directory '" + path + "' is not writable");
}

bool HUTFile::rm(const std::string& path) {
    if (hasNul(path)) return false;
    ::remove(path.c_str());
    return isGone(path);
}

bool HUTFile::rmRecursive(const std::string& path) {
    if (hasNul(path)) return false;
    if (!path.empty()) util::removeAt(AT_FDCWD, path.c_str());
    return isGone(path);
}
