#pragma once
#include <string>

#include "platform/FileKind.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"

namespace loading {

/// Whether a file has the extension of an archive in another letter case.
inline bool isUpperCaseArchive(const std::string& file) {
    using namespace teq_platform;
    return fileKindOf(file) != FileKind::hardware && fileKindOf(HSTStringUtils::toLower(file)) == FileKind::hardware;
}

/// What is wrong with an archive that does not have the extension of a platform's.
inline std::string wrongExtensionOf(const std::string& file) {
    if (HUTFile::getExt(file) == "rqa") return "this is a metadata archive, which contains no platform";
    return std::string("this is a zip archive; rename it to .lfa or .cfa") +
           (isUpperCaseArchive(file) ? ", in lower case" : "");
}

}  // namespace loading
