#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQHardwarePlatform;

/// Copies files out of the tile-array project, which is an archive inside the platform's archive. For the other
/// members of a platform's archive see `PlatformFileExtractor`.
class ZR_API PlatformTilprjFileExtractor {
public:
    /// `platform` must outlive the extractor.
    explicit PlatformTilprjFileExtractor(const HTEQHardwarePlatform& platform) : platform_(platform) {}
    /// Copies `member` of the platform's archive to the file `destination`, whose directory is made. For a platform
    /// read from the emulation directory the member is looked up there. False if the archive is not a file, the
    /// archive or the member cannot be read, or the file cannot be written; no file is then left at the destination.
    bool extract(const std::string& member, const std::string& destination) const;
    /// The same from another archive.
    bool extract(const std::string& member, const std::string& archive, const std::string& destination) const;
    /// Copies the member `path` of the project to the file `destination`. False if there is no project, it has no
    /// such member, or the file cannot be written.
    bool extractFile(const std::string& path, const std::string& destination) const;
    /// Copies the project itself, the file of type "TILPRJ" or, in older archives, "ME_ARCHIVE". Returns true at once
    /// if `destination` is an existing file.
    bool extractTILPRJFile(const std::string& destination) const;

private:
    const HTEQHardwarePlatform& platform_;
};
