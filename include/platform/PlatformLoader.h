#pragma once
#include <memory>
#include <string>

#include "platform/FileKind.h"
#include "platform/HTEQPlatform.h"
#include "platform/HwMetadataMode.h"
#include "platform/PlatformParseException.h"
#include "text/ZrApi.h"

class HTEQReconfigurablePartition;

namespace teq_platform {

/// The one way from a file to an `HTEQPlatform`: `.cfa` and `.lfa` are hardware archives, `.spfm` is a software file,
/// and any other path, also one without an extension, is a descriptor. Extensions are compared with their case.
///
/// A loader belongs to one thread.
class ZR_API PlatformLoader {
public:
    using HwMetadataMode = teq_platform::HwMetadataMode;

    /// Reads what is cheap: nothing of an archive or a software file, and the whole of a descriptor.
    /// Throws `HEXFileNotFoundException` when the descriptor does not exist, and `PlatformParseException` when it is
    /// not valid (what is wrong with it has then been printed on standard output and sent as message "@74-9@%s").
    PlatformLoader(const std::string& file, HwMetadataMode mode);
    PlatformLoader(const PlatformLoader&) = delete;
    PlatformLoader& operator=(const PlatformLoader&) = delete;
    ~PlatformLoader();

    /// Attaches hardware, emulation and software, and gives the platform, which outlives the loader while it is held.
    /// Null when a file is missing or cannot be read: message "@74-60@%s" tells why, and the loader has no platform
    /// any more. A second call after success reads nothing again.
    std::shared_ptr<HTEQPlatform> load();

    /// The platform of a file, or an exception that tells why there is none and where: `HEXFileFault`, or
    /// `HEXFileNotFoundException` for a descriptor, or an empty path.
    static std::shared_ptr<HTEQPlatform> open(const std::string& file, HwMetadataMode mode);

    /// The whole document of a platform: pretty-printed JSON, every value a text, a line end at the end. `file` is what
    /// it was loaded from. Throws `HEXFileFault` when an archive's extension metadata is no JSON, and when names of an
    /// IP's parameters clash, so that no document can hold them.
    static std::string document(const HTEQPlatform& platform, const std::string& file);

    /// @name What the descriptor says, before `load` too; not after a failed `load`
    /// @{
    const std::string& getVersion() const { return platform_->getVersion(); }
    const std::string& getFilePath() const { return platform_->getPlatformFile(); }
    std::string getBaseName() const { return platform_->getPlatformBaseName(); }
    const std::string& getName() const { return platform_->getName(); }
    const std::string& getVendor() const { return platform_->getVendor(); }
    const std::string& getDescription() const { return platform_->getDescription(); }
    const std::string& getHardwarePlatformFile() const { return platform_->getHardwarePlatformFile(); }
    const std::string& getHardwareEmuPlatformFile() const { return platform_->getHardwareEmuPlatformFile(); }
    const std::string& getSoftwarePlatformFile() const { return platform_->getSoftwarePlatformFile(); }
    /// @}

    /// @name The steps of `load`; each does nothing when its object is attached already
    /// @{
    /// Throws `PlatformParseException` when the hardware file is missing, has another extension or cannot be read.
    void attachHardwarePlatform();
    /// Never fails: a platform whose emulation file cannot be read loads without it.
    void attachHardwareEmulationPlatform();
    /// Throws `PlatformParseException` when the software file is missing or not valid.
    void attachSoftwarePlatform();
    /// @}

private:
    void attachPartition(HTEQReconfigurablePartition& partition);
    void attachAll();
    std::shared_ptr<HTEQPlatform> loadOrThrow();

    std::shared_ptr<HTEQPlatform> platform_;
    std::string file_;
    FileKind kind_;
    bool loaded_ = false;
    HwMetadataMode mode_;
};

}  // namespace teq_platform
