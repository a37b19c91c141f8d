#include "repository/SearchPath.h"

#include <sys/stat.h>

#include <cerrno>
#include <unordered_set>

#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"

namespace repository {
namespace {

const std::string& separator() {
    static const std::string text = HUTFile::getDirSeparator();
    return text;
}

}  // namespace

std::string systemRepository() {
    const std::string& s = separator();
    return s + "opt" + s + "torvane" + s + "platforms";
}

std::string repositoryBelow(const std::string& appRoot) { return appRoot + separator() + "platforms"; }

void splitToFullDirs(const std::string& path, std::vector<std::string>& dirs) {
    if (path.empty()) return;
    for (const std::string& piece : HSTStringUtils::split(path, ':'))
        dirs.push_back(HUTFile::getCanonicalName(piece));
}

namespace {

/// Whether it is in a directory that may not be searched, so that it may exist.
bool isForbidden(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) != 0 && errno == EACCES;
}

}  // namespace

std::vector<std::string> distinctDirectories(const std::vector<std::string>& dirs) {
    std::vector<std::string> distinct;
    std::unordered_set<std::string> seen;
    for (const std::string& dir : dirs) {
        if (!HUTFile::isDir(dir) && !isForbidden(dir)) continue;
        std::string canonical = HUTFile::getCanonicalName(dir);
        if (seen.insert(canonical).second) distinct.push_back(std::move(canonical));
    }
    return distinct;
}

}  // namespace repository
