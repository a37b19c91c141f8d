#include "util/HUTFileUtils.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

std::string HUTFileUtils::uniquifyFilenameInDir(const std::string& path) {
    std::error_code error;
    std::string name = path;
    for (unsigned long n = 1; fs::exists(fs::symlink_status(name, error)); ++n) name = path + "_" + std::to_string(n);
    return name;
}

std::string HUTFileUtils::makeAbsolutePath(const std::string& path) {
    if (path.empty()) return {};
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return error ? path : absolute.native();
}
