#pragma once
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/HPLBoard.h"
#include "platform/HTEQHardwarePlatform.h"

class HPLCore;
class HPLDevice;
class HPLFile;
class HPLInterface;
class HPLMemory;

enum class HostArchType { x86_64, armv7l, ppc64le, aarch64, unknown };
enum class HostInterfaceType { pcie, axi, unknown };

/// The texts of the values, indexed by number.
inline constexpr std::array<std::string_view, 5> HPLHostArchMap{"x86_64", "armv7l", "ppc64le", "aarch64", "unknown"};
inline constexpr std::array<std::string_view, 3> HPLHostInterfaceMap{"pcie", "axi", "unknown"};

/// A hardware platform from an archive, the only concrete class. Adds version, host, binary format, board, devices,
/// memories, host interfaces and the archive's list of files, and derives the names shown to users.
class ZR_API HPLPlatform : public HTEQHardwarePlatform {
public:
    using FileRange = std::pair<HSTVector<HPLFile*>::const_iterator, HSTVector<HPLFile*>::const_iterator>;

    HPLPlatform();

    /// Its own keys, then those of the base. Throws the property tree's json_parser_error if the extension metadata
    /// in the archive is not JSON.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;
    ~HPLPlatform() override;
    std::string getBoardPart() const override;
    /// Extracts the archive's board repository below the temporary directory and returns its path there; empty if the
    /// archive has none.
    std::string getBoardRepo() const override;
    std::string getBoardConnectionsString() const override;
    std::string getLockedBoardConnectionsString() const override;
    std::string getUnlockedBoardConnectionsString() const override;
    /// "major.minor".
    std::string getVersion() const override;
    /// "vendor:boardId:name:version".
    std::string getUniqueName() const override;
    /// "BOARDID (name)"; for an embedded platform the name.
    std::string getPrettyName() const override;
    /// "vendor_boardId_name_major_minor".
    std::string getDeviceName() const override;
    unsigned getNumDDRs() const override;
    /// Of the first memory; "ddr4" without memories.
    std::string getMemType() const override;
    /// "64 GB": the sum of the memories, or "8 GB" if that is 0. Throws as `getMemSizeInGb` does.
    std::string getMemSize() const override;
    /// "PCIe gen3x8" and the like; empty unless the platform is server managed or has an external host.
    std::string getInterfaceDesc() const override;
    void getBoardImgZipEntries(HSTVector<std::string>& out) const override;
    void getTargetCategories(HSTVector<std::string>& out) const override;
    void getDevices(HSTVector<HTEQDevice*>& out) const override;
    HPLDevice* getDevice(const std::string& name) const override;
    /// Of the core of the device "fpga0".
    int getRegisterCount() const override;
    /// Of the last device's core; 10 without devices.
    unsigned getNumComputeUnits() const override;
    std::string getHostArch() const override;
    bool hasDimmConnectors() const override;
    void getDimmConnectors(HSTVector<std::string>& out) const override;
    void getLockedDimmConnectors(HSTVector<std::string>& out) const override;
    void getConnectedDimmConnectors(HSTVector<std::string>& names,
                                    HSTVector<std::string>& connectedNames) const override;
    std::string getConnectorDisplayName(const std::string& name) const override;
    void getValidSLRNames(HSTVector<std::string>& out) const override;
    std::string getFile(const std::string& type) const override;
    std::string getFile(FileType type) const override;
    bool hasFile(const std::string& type) const override;
    bool hasFile(FileType type) const override;
    std::string getExtMetaJsonAsString() const override;
    void getExtMetaJsonAsPtree(ptree& tree) const override;
    void setComputedDesignIntent(HTEQDesignIntentStorage::Key key, bool value) override;
    void setExplicitDesignIntent(HTEQDesignIntentStorage::Key key, bool value) override;

    /// In gigabytes. Throws as `getMemSizeInGb` does.
    virtual long long getTotalMemSizeInGb() const;
    virtual const HSTVector<std::string>& getZuncCompileXpSwitches() const;
    virtual const HSTVector<std::string>& getZuncLinkXpSwitches() const;

    /// @name Fields
    /// @{
    unsigned getVersionMajor() const { return versionMajor_; }
    void setVersionMajor(unsigned value) { versionMajor_ = value; }
    unsigned getVersionMinor() const { return versionMinor_; }
    void setVersionMinor(unsigned value) { versionMinor_ = value; }
    const std::string& getTopModuleName() const { return topModuleName_; }
    void setTopModuleName(std::string value) { topModuleName_ = std::move(value); }
    const std::string& getAcceleratorBinaryFormat() const { return acceleratorBinaryFormat_; }
    void setAcceleratorBinaryFormat(std::string value) { acceleratorBinaryFormat_ = std::move(value); }
    const std::string& getAcceleratorBinaryContent() const { return acceleratorBinaryContent_; }
    void setAcceleratorBinaryContent(std::string value) { acceleratorBinaryContent_ = std::move(value); }
    bool isDcpFuncStripped() const { return dcpFuncStripped_; }
    void setDcpFuncStripped(bool value) { dcpFuncStripped_ = value; }
    bool isDcpEncrypt() const { return dcpEncrypt_; }
    void setDcpEncrypt(bool value) { dcpEncrypt_ = value; }
    const std::string& getDefaultOutputType() const { return defaultOutputType_; }
    void setDefaultOutputType(std::string value) { defaultOutputType_ = std::move(value); }
    std::uint64_t getOldFeatureRomTime() const { return oldFeatureRomTime_; }
    void setOldFeatureRomTime(std::uint64_t value) { oldFeatureRomTime_ = value; }
    /// Text of the archive's hpfm member.
    void setHpfmString(std::string text) { storeHpfmString_(std::move(text)); }
    void setXmlFile(std::string path) { xmlFile_ = std::move(path); }
    /// Canonical path of the metadata file that the platform was read from.
    std::string getXmlFile() const;
    /// Its directory; empty without such a file.
    std::string getDirectory() const;
    HPLBoard& getBoard() { return board_; }
    const HPLBoard& getReadOnlyBoard() const { return board_; }
    /// @}

    /// @name Host
    /// Texts are compared without regard to case; an unrecognised one gives `unknown`.
    /// @{
    static HostArchType getHostArchType(const std::string& text);
    static std::string getHostArchAsStr(HostArchType value);
    static HSTVector<std::string> getHostArchTypesAsStr();
    HostArchType getHostArchAsEnum() const { return hostArch_; }
    void setHostArch(const std::string& text) { hostArch_ = getHostArchType(text); }
    static HostInterfaceType getHostInterfaceType(const std::string& text);
    static std::string getHostInterfaceAsStr(HostInterfaceType value);
    std::string getHostInterface() const { return getHostInterfaceAsStr(hostInterface_); }
    HostInterfaceType getHostInterfaceAsEnum() const { return hostInterface_; }
    void setHostInterface(const std::string& text) { hostInterface_ = getHostInterfaceType(text); }
    /// @}

    /// @name Lists
    /// @{
    /// Append a value unless it is already in the list.
    void addValidBinaryContentValue(const std::string& value) { binaryContentValues_.add(value); }
    void addValidOutputTypeValue(const std::string& value) { outputTypeValues_.add(value); }
    const HSTVector<std::string>& getValidBinaryContentValues() const { return binaryContentValues_.values; }
    const HSTVector<std::string>& getValidOutputTypeValues() const { return outputTypeValues_.values; }
    /// The values separated by "," without blanks.
    std::string getValidBinaryContentValuesAsStr() const;
    std::string getValidOutputTypeValuesAsStr() const;
    void addZuncCompileXpSwitch(std::string value) { compileSwitches_.push_back(std::move(value)); }
    void addZuncLinkXpSwitch(std::string value) { linkSwitches_.push_back(std::move(value)); }

    HPLDevice* addDevice();
    HPLMemory* addMemory();
    HPLInterface* addInterface();
    HPLFile* addFile(const std::string& type, const std::string& name);
    /// Removes and deletes the file; does nothing if the platform does not own it.
    void removeFile(HPLFile* file);
    /// Removes all files of exactly that type.
    void removeFileType(const std::string& type);
    /// The first file of exactly that type, or null. `getFile`, by contrast, ignores case and finds the last.
    HPLFile* findFile(const std::string& type) const;
    unsigned getNumFiles() const { return static_cast<unsigned>(files_.size()); }
    FileRange getFileVecRange() const { return {files_.begin(), files_.end()}; }
    HSTFwdIter<HPLDevice*>* createDeviceIter() const;
    HSTFwdIter<HPLMemory*>* createMemoryIter() const;
    HSTFwdIter<HPLInterface*>* createInterfaceIter() const;
    HSTFwdIter<HPLFile*>* createFileVecIter() const;
    /// @}

    /// @name Derived
    /// @{
    static std::string getVBNVAsStr(const std::string& vendor, const std::string& board, const std::string& name,
                                    const std::string& version);
    std::string getVBNV() const;
    /// The leading number of a size such as "16GB"; 0 for other units. Throws std::out_of_range if there are
    /// several memories but none with number `index`, or the number is too large; std::invalid_argument ("stoi") for
    /// "x4GB".
    int getMemSizeInGb(std::size_t index) const;
    /// Devices that have a core.
    unsigned getOCLRegionCount() const;
    bool usesExpandedPR() const;
    /// Instance path of the first core.
    std::string getOclInstPath() const;
    /// Whether both documents are equal; case is ignored.
    bool isEquals(const HPLPlatform& other) const;
    /// @}

private:
    struct UniqueTexts {
        HSTVector<std::string> values;
        std::set<std::string> known;
        void add(const std::string& value);
    };
    /// The core of the device "fpga0", or null.
    const HPLCore* getFirstCore_() const;
    /// Member name of the extension metadata; empty if none is listed.
    std::string getExtMetaJsonFile_() const;

    unsigned versionMajor_ = 0, versionMinor_ = 0;
    HostArchType hostArch_ = HostArchType::unknown;
    HostInterfaceType hostInterface_ = HostInterfaceType::unknown;
    std::string topModuleName_, acceleratorBinaryFormat_ = "rovapk2", acceleratorBinaryContent_ = "bitstream";
    UniqueTexts binaryContentValues_;
    HSTVector<std::string> compileSwitches_, linkSwitches_;
    bool dcpFuncStripped_ = false, dcpEncrypt_ = false;
    std::string defaultOutputType_ = "unknown";
    UniqueTexts outputTypeValues_;
    HPLBoard board_;
    Owned<HPLInterface> interfaces_;
    Owned<HPLMemory> memories_;
    Owned<HPLDevice> devices_;
    Owned<HPLFile> files_;
    std::string xmlFile_;
    std::uint64_t oldFeatureRomTime_ = 0;
};
