#include "loading/PackPatterns.h"

#include <fnmatch.h>

#include <algorithm>
#include <array>

#include "msg/HEXFileFault.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"

namespace loading {
namespace {

constexpr const char* kIgnoreFile = ".zrignore";
constexpr std::size_t kMaxIgnoreFile = 1 << 16;
/// The most comparisons with more than that many patterns: a large folder may have a few.
constexpr std::size_t kManyPatterns = 100, kMaxComparisons = 5'000'000;

bool matches(const std::string& pattern, const std::string& text) {
    return ::fnmatch(pattern.c_str(), text.c_str(), FNM_PATHNAME | FNM_NOESCAPE) == 0;
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace

PackPatterns::PackPatterns(const HSTVector<std::string>& patterns, const std::string& folder) : folder_(folder) {
    for (const std::string& pattern : patterns) add_(pattern);
    const std::string file = folder + "/" + kIgnoreFile;
    if (!HUTFile::isFile(file)) return;
    for (const std::string& line : HSTStringUtils::split(wholefile::read(file, kMaxIgnoreFile), '\n')) {
        const std::string_view pattern = HSTStringUtils::trim(line);
        if (!pattern.empty() && !pattern.starts_with('#')) add_(pattern);
    }
}

void PackPatterns::add_(std::string_view pattern) {
    const bool isFolderOnly = pattern.ends_with('/');
    if (isFolderOnly) pattern.remove_suffix(1);
    const bool isPath = pattern.find('/') != std::string_view::npos;
    if (pattern.starts_with('/')) pattern.remove_prefix(1);
    patterns_.push_back({std::string(pattern), isFolderOnly, isPath});
}

bool PackPatterns::exclude(const std::string& path) {
    if (path == kIgnoreFile) return true;
    comparisons_ += patterns_.size();
    if (patterns_.size() > kManyPatterns && comparisons_ > kMaxComparisons)
        throw HEXFileFault({.file = folder_, .text = "more than 5000000 comparisons of names and patterns"});
    const std::string name = nameOf(path);
    return std::ranges::any_of(patterns_, [&](const Pattern& pattern) {
        return matches(pattern.text, pattern.isPath ? path : name) &&
               (!pattern.isFolderOnly || HUTFile::isDir(folder_ + "/" + path));
    });
}

bool isHidden(const std::string& path) { return path.starts_with('.') || path.find("/.") != std::string::npos; }

bool isBackup(const std::string& path) {
    const std::string name = nameOf(path);
    return std::ranges::any_of(std::array{"*~", "#*#", "*.bak", "*.orig", "*.rej", "*.swp", "*.tmp"},
                               [&](const char* pattern) { return matches(pattern, name); });
}

}  // namespace loading
