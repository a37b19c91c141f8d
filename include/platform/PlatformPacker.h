#pragma once
#include <string>
#include <vector>

#include "msg/HEXDiagnostic.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// Makes a platform's archive from a folder of its members (see `HUTZip::compressDir`) after checking it.
class ZR_API PlatformPacker {
public:
    struct Options {
        bool overwrite = false;
        /// Accept a folder without readable metadata, or without files that it lists: with a warning.
        bool mayLack = false;
        /// Patterns of files and folders that are left out, with *, ? and [...]. One without "/" is compared with
        /// names, one with "/" with paths in the folder; a final "/" selects folders only, a first "/" means nothing.
        HSTVector<std::string> exclude = {};
    };

    /// The file ".zrignore" in the folder has further patterns to exclude, one on a line; lines that begin with "#" are
    /// comments. It is not packed itself. Returns warnings, which name the folder or a file in it: hidden files, backups of editors, and files that the
    /// metadata does not list. Throws `HEXFileFault` and writes nothing if the folder is not complete (see `mayLack`).
    /// Throws `HEXUserException` if `archive` exists, unless `overwrite` is true, and for errors of the file system.
    static std::vector<HEXDiagnostic> pack(const std::string& folder, const std::string& archive,
                                           const Options& options);
};

}  // namespace teq_platform
