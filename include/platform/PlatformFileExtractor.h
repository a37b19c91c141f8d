#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQHardwarePlatform;

/// Copies members of a platform's archive to files, and optionally repairs a copied hpfm file. For files inside the
/// tile-array project see `PlatformTilprjFileExtractor`.
class ZR_API PlatformFileExtractor {
public:
    /// `platform` must outlive the extractor.
    PlatformFileExtractor(const HTEQHardwarePlatform& platform, bool repairHpfm)
        : platform_(platform), repairHpfm_(repairHpfm) {}

    /// Copies `member` of the platform's archive to the file `destination`, whose directory is made. For a platform
    /// read from the emulation directory the member is looked up there. False if the archive or the member cannot be
    /// read or the file cannot be written; no file is then left at the destination. With `repairHpfm`, and a
    /// destination with the extension "hpfm", HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded follows, which may throw
    /// HXMLException.
    bool extract(const std::string& member, const std::string& destination) const;
    /// The same from another archive.
    bool extract(const std::string& member, const std::string& archive, const std::string& destination) const;

private:
    const HTEQHardwarePlatform& platform_;
    bool repairHpfm_;
};
