#pragma once
#include <string>

#include "util/HUTFile.h"

namespace loading {

/// What is wrong with an archive that does not have the extension of a platform's.
inline const char* wrongExtensionOf(const std::string& file) {
    return HUTFile::getExt(file) == "rqa" ? "this is a metadata archive, which contains no platform"
                                          : "this is a zip archive; rename it to .lfa or .cfa";
}

}  // namespace loading
