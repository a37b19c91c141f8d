#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

class HTEQHardwarePlatform;

/// Ties an id of a platform descriptor to the hardware platforms of that partition. The platforms belong to their
/// creator and must outlive this object. For the ids in hardware metadata see `HTEQReconfigPartition`.
class ZR_API HTEQReconfigurablePartition : public teq_platform::JSONSerializable {
public:
    explicit HTEQReconfigurablePartition(unsigned id) : id_(id) {}
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    unsigned getID() const { return id_; }
    HTEQHardwarePlatform* getHardwarePlatform() const { return hardwarePlatform_; }
    void setHardwarePlatform(HTEQHardwarePlatform* platform) { hardwarePlatform_ = platform; }
    HTEQHardwarePlatform* getHardwareEmulationPlatform() const { return hardwareEmulationPlatform_; }
    void setHardwareEmulationPlatform(HTEQHardwarePlatform* platform) { hardwareEmulationPlatform_ = platform; }
    const std::string& getHardwarePlatformFile() const { return hardwarePlatformFile_; }
    void setHardwarePlatformFile(std::string file) { hardwarePlatformFile_ = std::move(file); }
    const std::string& getHardwareEmulationPlatformFile() const { return hardwareEmuPlatformFile_; }
    void setHardwareEmuPlatformFile(std::string file) { hardwareEmuPlatformFile_ = std::move(file); }

    bool hasHardwareEmulationPlatform() const { return hardwareEmulationPlatform_ != nullptr; }
    /// Whether the emulation platform has its own file; only then is it in the document.
    bool hasDistinctHardwareEmulationPlatform() const { return !hardwareEmuPlatformFile_.empty(); }

private:
    unsigned id_;
    HTEQHardwarePlatform* hardwarePlatform_ = nullptr;
    HTEQHardwarePlatform* hardwareEmulationPlatform_ = nullptr;
    std::string hardwarePlatformFile_, hardwareEmuPlatformFile_;
};
