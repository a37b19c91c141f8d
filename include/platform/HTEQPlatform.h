#pragma once
#include <memory>
#include <string>

#include "platform/JSONSerializable.h"
#include "text/HSTVector.h"
#include "text/Owned.h"
#include "text/ZrApi.h"

class HTEQDesignIntentStorage;
class HTEQHardwarePlatform;
class HTEQReconfigurablePartition;
class HTEQSoftwarePlatform;

/// One platform, loaded from its descriptor (`.zdf`), from a hardware archive alone (`.cfa`, `.lfa`) or from a
/// software file alone (`.spfm`). `teq_platform::PlatformLoader` makes it.
///
/// It owns its hardware platforms, partitions and software platforms, and every object that it hands out. Queries
/// never fail: what is missing gives empty, false, 0 or null.
class ZR_API HTEQPlatform : public teq_platform::JSONSerializable {
public:
    HTEQPlatform();
    HTEQPlatform(const HTEQPlatform&) = delete;
    HTEQPlatform& operator=(const HTEQPlatform&) = delete;

    /// The whole document, hardware and software included.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;
    /// Only "uniqueName", "file" and "description", each unless empty.
    void shortToJSON(teq_platform::JSONObjectWriter& writer) const;
    ~HTEQPlatform() override;

    /// @name From the descriptor: its attributes and description; empty for a lone hardware archive or software file.
    /// @{
    const std::string& getVendor() const { return vendor_; }
    const std::string& getLibrary() const { return library_; }
    const std::string& getName() const { return name_; }
    /// The text of the descriptor's decimal, for instance "1.0".
    const std::string& getVersion() const { return version_; }
    const std::string& getDescription() const { return description_; }
    void setVendor(const std::string& vendor) { vendor_ = vendor; }
    void setLibrary(const std::string& library) { library_ = library; }
    void setName(const std::string& name) { name_ = name; }
    void setVersion(const std::string& version) { version_ = version; }
    void setDescription(const std::string& description) { description_ = description; }
    /// @}

    /// @name Files
    /// @{
    /// Path of the descriptor, or of the archive of a hardware-only platform; empty for a software-only one.
    const std::string& getPlatformFile() const { return platformFile_; }
    const std::string& getHardwarePlatformFile() const { return hardwareFile_; }
    /// Empty if the platform has no separate emulation file.
    const std::string& getHardwareEmuPlatformFile() const { return hardwareEmuFile_; }
    const std::string& getSoftwarePlatformFile() const { return softwareFile_; }
    void setPlatformFile(const std::string& file) { platformFile_ = file; }
    void setHardwarePlatformFile(const std::string& file) { hardwareFile_ = file; }
    void setHardwareEmuPlatformFile(const std::string& file) { hardwareEmuFile_ = file; }
    void setSoftwarePlatformFile(const std::string& file) { softwareFile_ = file; }
    /// The platform file: a platform's unique name is its path.
    const std::string& getUniqueName() const { return platformFile_; }
    /// Directory of the platform file; "." for a bare file name, empty without a file.
    std::string getPlatformDir() const;
    /// Name of the platform file without its directory and its last extension.
    std::string getPlatformBaseName() const;
    /// The hardware platform's device name for a partial platform with hardware, else the base name.
    std::string getDeviceName() const;
    /// @}

    /// @name State
    /// @{
    bool isZdf() const { return zdf_; }          ///< came from a descriptor
    bool isPartial() const { return partial_; }  ///< a lone hardware archive or software file
    bool isComplete() const { return !partial_; }
    bool isBad() const { return bad_; }
    const std::string& getBadReason() const { return badReason_; }
    void setZdf(bool zdf) { zdf_ = zdf; }
    void setPartial(bool partial) { partial_ = partial; }
    void setBad(bool bad) { bad_ = bad; }
    void setBadReason(const std::string& reason) { badReason_ = reason; }
    /// @}

    /// @name Hardware
    /// The setters take ownership of their arguments (except the default partition's objects, which the partition
    /// owns) and do not delete the previous objects.
    /// @{
    void setHardwarePlatform(HTEQHardwarePlatform* platform) { hardware_ = platform; }
    void setHardwareEmulationPlatform(HTEQHardwarePlatform* platform) { hardwareEmu_ = platform; }
    void setDefaultRPHardwarePlatform(HTEQHardwarePlatform* platform) { defaultHardware_ = platform; }
    void setDefaultRPHardwareEmulationPlatform(HTEQHardwarePlatform* platform) { defaultHardwareEmu_ = platform; }
    void setDefaultRPId(unsigned int id) { defaultRPId_ = id; }
    unsigned int getDefaultRPId() const { return defaultRPId_; }
    /// The direct one, else the default partition's.
    HTEQHardwarePlatform* getHardwarePlatform() const;
    HTEQHardwarePlatform* getHardwareEmulationPlatform() const;
    bool hasHWEmulationPlatform() const { return hardwareEmu_ != nullptr; }
    /// Whether the emulation platform has its own file.
    bool hasDistinctHardwareEmulationPlatform() const { return !hardwareEmuFile_.empty(); }
    /// @}

    /// @name Reconfigurable partitions, in file order
    /// @{
    /// Takes ownership.
    void addReconfigurablePartition(HTEQReconfigurablePartition* partition);
    const HSTVector<HTEQReconfigurablePartition*>& getReconfigurablePartitions() const { return partitions_.items(); }
    bool hasReconfigurablePartitions() const { return !partitions_.empty(); }
    bool hasRPHardwareEmulationPlatform() const;
    /// If several partitions have the id, the last in the file; null if there is none.
    HTEQReconfigurablePartition* getReconfigurablePartition(unsigned int id) const;
    HTEQHardwarePlatform* getRPHardwarePlatform(unsigned int id) const;
    HTEQHardwarePlatform* getRPHardwareEmulationPlatform(unsigned int id) const;
    HTEQHardwarePlatform* getDefaultRPHardwarePlatform() const { return getRPHardwarePlatform(defaultRPId_); }
    HTEQHardwarePlatform* getDefaultRPHardwareEmulationPlatform() const {
        return getRPHardwareEmulationPlatform(defaultRPId_);
    }
    /// @}

    /// @name Software
    /// @{
    /// Takes ownership.
    void addSoftwarePlatform(HTEQSoftwarePlatform* platform);
    const HSTVector<HTEQSoftwarePlatform*>& getSoftwarePlatforms() const { return software_.items(); }
    /// The first one, or null.
    HTEQSoftwarePlatform* getSoftwarePlatform() const;
    /// @}

    /// @name From the hardware platform (the direct one, else the default partition's)
    /// @{
    bool supportsHardware() const;
    bool supportsSWEmulation() const;
    /// True with an emulation platform; with partitions if any of them has one; else as for the direct hardware.
    bool supportsHWEmulation() const;
    bool hasSimContent() const;
    bool isExpandable() const;
    bool isFixed() const { return !isExpandable(); }  ///< a platform without hardware is fixed
    bool isUnified() const;
    bool getDesignIntentDataCenter() const;
    bool getDesignIntentEmbedded() const;
    bool getDesignIntentExternalHost() const;
    bool getDesignIntentServerManaged() const;
    /// @}

    /// @name From the direct hardware platform only
    /// @{
    bool supportsTwoHwEmuBd() const;
    bool hasDimmConnectors() const;
    void getDimmConnectors(HSTVector<std::string>& out) const;
    bool isHWEmuPlatform() const;
    /// @}

    /// Appends those of the direct hardware platform, then those of the default partition's.
    void getTargetCategories(HSTVector<std::string>& out) const;
    bool isHidden() const;
    /// By the design intent: "acceleration", "fennick", "lorimar" or "undefined"; empty without hardware.
    std::string getTypeString() const;
    /// "Fennick", "Lorimar", "Acceleration", and "Undefined" for all else.
    std::string getTypePrettyString() const;

private:
    void writePlatforms(teq_platform::JSONObjectWriter& writer) const;
    /// From the direct hardware platform, else the default partition's; false without one.
    bool ask(bool (HTEQHardwarePlatform::*question)() const) const;
    bool intends(bool (HTEQDesignIntentStorage::*intent)() const) const;
    bool askDirect(bool (HTEQHardwarePlatform::*question)() const) const;

    std::string vendor_, library_, name_, version_, description_;
    std::string platformFile_, hardwareFile_, softwareFile_, hardwareEmuFile_;
    HTEQHardwarePlatform* hardware_ = nullptr;
    HTEQHardwarePlatform* hardwareEmu_ = nullptr;
    Owned<HTEQReconfigurablePartition> partitions_;
    Owned<HTEQSoftwarePlatform> software_;
    HTEQHardwarePlatform* defaultHardware_ = nullptr;
    HTEQHardwarePlatform* defaultHardwareEmu_ = nullptr;
    bool zdf_ = false;
    bool partial_ = false;
    bool bad_ = false;
    std::string badReason_;
    unsigned int defaultRPId_ = 0;
};
