#pragma once
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {

/// Makes a platform's archive from a folder of its members (see `HUTZip::compressDir`) after checking it.
class ZR_API PlatformPacker {
public:
    /// Throws `HEXFileFault` and writes nothing if the metadata cannot be read or, unless `mayLack` is true, lists
    /// files that the folder does not contain; a folder without metadata lists none. Throws `HEXUserException` if
    /// `archive` exists, unless `overwrite` is true, and for errors of the file system.
    static void pack(const std::string& folder, const std::string& archive, bool overwrite, bool mayLack);
};

}  // namespace teq_platform
