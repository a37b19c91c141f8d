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
/// and any other path, even without an extension, is a descriptor. The case of extensions matters.
///
/// A loader belongs to one thread.
class ZR_API PlatformLoader {
public:
    using HwMetadataMode = teq_platform::HwMetadataMode;

    /// Reads a descriptor completely, but nothing of an archive or a software file. Throws `HEXFileNotFoundException`
    /// if the descriptor does not exist, and `PlatformParseException` if it is not valid (the error has then been
    /// printed on standard output and sent as message "@74-9@%s").
    PlatformLoader(const std::string& file, HwMetadataMode mode);
    PlatformLoader(const PlatformLoader&) = delete;
    PlatformLoader& operator=(const PlatformLoader&) = delete;
    ~PlatformLoader();

    /// Attaches hardware, emulation and software, and returns the platform, which may outlive the loader. Null if a
    /// file is missing or cannot be read: message "@74-60@%s" gives the reason, and the loader no longer has a
    /// platform. A second call after success does not read again.
    std::shared_ptr<HTEQPlatform> load();

    /// The platform of a file. Throws with the reason and its location if it cannot be loaded: `HEXFileFault`, or
    /// `HEXFileNotFoundException` for a missing descriptor or an empty path.
    static std::shared_ptr<HTEQPlatform> open(const std::string& file, HwMetadataMode mode);

    /// The whole document of a platform: pretty-printed JSON, every value a text, with a final line end. `file` is
    /// the file that it was loaded from. Throws `HEXFileFault` if an archive's extension metadata is not JSON, and if
    /// the names of an IP's parameters clash, so that no document can hold them.
    static std::string document(const HTEQPlatform& platform, const std::string& file);

    /// @name From the descriptor; available before `load`, but not after a failed one
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

    /// @name The steps of `load`; each does nothing if its object is already attached
    /// @{
    /// Throws `PlatformParseException` if the hardware file is missing, has another extension or cannot be read.
    void attachHardwarePlatform();
    /// Never fails: if the emulation file cannot be read, the platform is loaded without it.
    void attachHardwareEmulationPlatform();
    /// Throws `PlatformParseException` if the software file is missing or not valid.
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
