#pragma once
#include <memory>
#include <string>

#include "platform/HwMetadataMode.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HPLPlatform;
class HTEQPlatform;

namespace teq_platform {

/// Changes a hardware archive; what would be lost is known before anything is written.
class ZR_API PlatformEdit {
public:
    /// Loads the archive. `stripPaths`: whether to omit "platformFile", a path on the author's machine, from the
    /// metadata. Throws `HEXFileFault` if it is not an archive or cannot be loaded, `HEXDataException` if its member
    /// is not JSON, `HEXFileNotFoundException` for an empty path.
    PlatformEdit(const std::string& archive, HwMetadataMode mode, bool stripPaths);
    PlatformEdit(const PlatformEdit&) = delete;
    PlatformEdit& operator=(const PlatformEdit&) = delete;
    ~PlatformEdit();

    /// What writing loses or changes in the metadata, which is rewritten from the model and does not hold everything
    /// that documents of other tools may contain: a line for each key, "devices[0].core.key: lost" or "key: old ->
    /// new".
    const HSTVector<std::string>& lost() const { return lost_; }
    /// The platform as it was loaded.
    const HPLPlatform& platform() const { return *platform_; }

    /// Puts `source` into the archive as `member`, the one file of its type in the metadata, in one rewrite that
    /// updates the digest, whatever is lost. Throws like `HTEQHardwarePlatform::archiveFile`.
    void setFile(const std::string& type, const std::string& member, const std::string& source);

private:
    std::shared_ptr<HTEQPlatform> loaded_;
    HPLPlatform* platform_;
    HSTVector<std::string> lost_;
};

}  // namespace teq_platform
