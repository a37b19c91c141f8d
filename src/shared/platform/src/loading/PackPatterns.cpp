#include "loading/PackPatterns.h"

#include <fnmatch.h>

#include <algorithm>
#include <array>

#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"

namespace loading {
namespace {

constexpr const char* kIgnoreFile = ".zrignore";
constexpr std::size_t kMaxIgnoreFile = 1 << 16;

bool matches(const std::string& pattern, const std::string& text) {
    return ::fnmatch(pattern.c_str(), text.c_str(), FNM_PATHNAME | FNM_NOESCAPE) == 0;
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace

PackPatterns::PackPatterns(const HSTVector<std::string>& patterns, const std::string& folder)
    : folder_(folder), patterns_(patterns) {
    const std::string file = folder + "/" + kIgnoreFile;
    if (!HUTFile::isFile(file)) return;
    for (const std::string& line : HSTStringUtils::split(wholefile::read(file, kMaxIgnoreFile), '\n')) {
        const std::string_view pattern = HSTStringUtils::trim(line);
        if (!pattern.empty() && !pattern.starts_with('#')) patterns_.emplace_back(pattern);
    }
}

bool PackPatterns::exclude(const std::string& path) const {
    if (path == kIgnoreFile) return true;
    return std::ranges::any_of(patterns_, [&](std::string pattern) {
        const bool isFolderOnly = pattern.ends_with('/');
        if (isFolderOnly) pattern.pop_back();
        const bool isPath = pattern.find('/') != std::string::npos;
        if (pattern.starts_with('/')) pattern.erase(0, 1);
        return matches(pattern, isPath ? path : nameOf(path)) &&
               (!isFolderOnly || HUTFile::isDir(folder_ + "/" + path));
    });
}

bool isHidden(const std::string& path) { return path.starts_with('.') || path.find("/.") != std::string::npos; }

bool isBackup(const std::string& path) {
    const std::string name = nameOf(path);
    return std::ranges::any_of(std::array{"*~", "#*#", "*.bak", "*.orig", "*.rej", "*.swp", "*.tmp"},
                               [&](const char* pattern) { return matches(pattern, name); });
}

}  // namespace loading
