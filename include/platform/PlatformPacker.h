#pragma once
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {

/// Makes a platform's archive of a folder with its members (`HUTZip::compressDir` tells how), and looks at it first.
class ZR_API PlatformPacker {
public:
    /// Throws `HEXFileFault`, and nothing is written, when the metadata cannot be read or lists files that the folder
    /// lacks, unless `mayLack` is true; a folder without metadata lists nothing. Throws `HEXUserException` when
    /// `archive` exists, unless `overwrite` is true, and for the disk.
    static void pack(const std::string& folder, const std::string& archive, bool overwrite, bool mayLack);
};

}  // namespace teq_platform
