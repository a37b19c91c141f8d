#include "platform/FileKind.h"

#include "platform/HTEQHardwarePlatform.h"
#include "util/HUTFile.h"

namespace teq_platform {

FileKind fileKindOf(const std::string& file) {
    const std::string extension = "." + HUTFile::getExt(file);
    if (HTEQHardwarePlatform::isValidPlatformExt(extension)) return FileKind::hardware;
    return extension == ".spfm" ? FileKind::software : FileKind::descriptor;
}

}  // namespace teq_platform
