#include "util/ShownPath.h"

#include <filesystem>

#include "util/HUTFile.h"

namespace util {
namespace {

namespace fs = std::filesystem;

/// Without "." and "..", unless that leads elsewhere because of a link.
std::string shortened(const fs::path& path) {
    const std::string normal = path.lexically_normal();
    return HUTFile::getCanonicalName(normal) == HUTFile::getCanonicalName(path) ? normal : path.native();
}

}  // namespace

std::string shownPath(const std::string& path, const std::string& file) {
    const fs::path shown(path), given(file);
    if (path.empty() || file.empty()) return path;
    if (shown.is_relative() || given.is_absolute()) return shortened(shown);
    // The path was made absolute: it is relative again to the folder of the file, as that is given.
    const std::string folder = HUTFile::getParent(HUTFile::getCanonicalName(file));
    const fs::path rest = shown.lexically_relative(folder);
    return rest.empty() ? path : shortened(given.parent_path() / rest);
}

}  // namespace util
