#pragma once
#include <memory>
#include <string>

#include "platform/HwMetadataMode.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HPLPlatform;
class HTEQPlatform;

namespace teq_platform {

/// A hardware archive that is to be changed: what that would cost is known before anything is written.
class ZR_API PlatformEdit {
public:
    /// Loads the archive. `stripPaths`: whether to leave "platformFile", a path of the maker's machine, out of the
    /// metadata. Throws `HEXFileFault` when it is none or cannot be loaded, `HEXDataException` when its member is no
    /// JSON, `HEXFileNotFoundException` for an empty path.
    PlatformEdit(const std::string& archive, HwMetadataMode mode, bool stripPaths);
    PlatformEdit(const PlatformEdit&) = delete;
    PlatformEdit& operator=(const PlatformEdit&) = delete;
    ~PlatformEdit();

    /// What writing loses or changes of the metadata, which is written anew and does not hold all that other makers'
    /// documents may say: a line for each, "devices[0].core.key: lost" or "key: old -> new".
    const HSTVector<std::string>& lost() const { return lost_; }

    /// Puts `source` into the archive as `member`, the one file of its type in the metadata, in one rewrite that stamps
    /// the digest, whatever is lost. Throws what `HTEQHardwarePlatform::archiveFile` throws.
    void setFile(const std::string& type, const std::string& member, const std::string& source);

private:
    std::shared_ptr<HTEQPlatform> loaded_;
    HPLPlatform* platform_;
    HSTVector<std::string> lost_;
};

}  // namespace teq_platform
