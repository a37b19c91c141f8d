#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/HTEQDesignIntentStorage.h"
#include "platform/HTEQPfmFileTypes.h"
#include "platform/HTEQReconfigPartition.h"
#include "platform/HTEQTilHardware.h"
#include "platform/HTEQTilPartition.h"
#include "platform/JSONSerializable.h"
#include "text/HSTFwdIter.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

class HHSMHardwareDb;
class HPLDevice;
class HTEQDesignIPInstance;
class HTEQDevice;
class HTEQHardwareBusInterface;
class HTEQHardwareFeatureRom;
class HTEQHardwareIPParam;
class HTEQHardwareNocConnectivity;
class HTEQSystemClock;

namespace hardware {
class ArchiveChanges;
}

/// The hardware side of one platform: who made it, its part and board, its clocks, bus interfaces, memories and
/// feature ROMs. Readers fill it through setters and `add...` factories.
///
/// It owns everything that it hands out a pointer to. The caller deletes what a `create...Iter` operation returns,
/// before the platform is destroyed. Operations that fill a vector append to it. Queries never fail: what is missing
/// gives empty, false, 0 or null; the few that may throw say so. For one thread at a time: some results are computed
/// on demand.
class ZR_API HTEQHardwarePlatform : public teq_platform::JSONSerializable {
public:
    enum class PlatformState { synth, impl, pre_synth, other };
    using FileType = HTEQPfmFileTypes::FileType;
    using ptree = boost::property_tree::ptree;
    using FeatureRomRange = std::pair<HSTVector<HTEQHardwareFeatureRom*>::const_iterator,
                                      HSTVector<HTEQHardwareFeatureRom*>::const_iterator>;

    HTEQHardwarePlatform();
    HTEQHardwarePlatform(const HTEQHardwarePlatform&) = delete;
    HTEQHardwarePlatform& operator=(const HTEQHardwarePlatform&) = delete;

    // The order of the virtual functions is part of the ABI: a new one goes after the last. `getSystemClocks`,
    // `getHardwareIPParams`, `getBusInterfaces` and `getFeatureRoms` walk what the `create...Iter` operation of their
    // objects returns.

    void toJSON(teq_platform::JSONObjectWriter& writer) const override;
    ~HTEQHardwarePlatform() override;
    virtual const std::string& getName() const;
    virtual const std::string& getVendor() const;
    virtual std::string getBoardPart() const = 0;
    virtual std::string getBoardRepo() const = 0;
    virtual std::string getBoardConnectionsString() const = 0;
    virtual std::string getLockedBoardConnectionsString() const = 0;
    virtual std::string getUnlockedBoardConnectionsString() const = 0;
    virtual const std::string& getBoardId() const;
    virtual std::string getVersion() const = 0;
    virtual const std::string& getDescription() const;
    virtual const std::string& getDetailedDescription() const;
    virtual std::string getUniqueName() const;
    virtual std::string getPrettyName() const;
    /// Of the first device: its part name, the architecture field of its part ("getFpgaPart"), its device field.
    virtual std::string getPartName() const;
    virtual std::string getFpgaPart() const;
    virtual std::string getFpgaDevice() const;
    virtual std::string getDeviceName() const = 0;
    virtual unsigned getNumDDRs() const = 0;
    virtual std::string getMemType() const = 0;
    virtual std::string getMemSize() const = 0;

    /// Whether memory banks are addressed by type and number, as determined by the first memory interface. As long as
    /// there is none the result is false and the next call looks again; after that it is fixed, so all bus interfaces
    /// must be added before the first call.
    virtual bool isMemoryResourceIndexed() const;
    virtual unsigned getUniqueMemoryTypeCount() const;
    /// Appends the memory types, sorted and without duplicates, and returns their number. In upper case on an indexed
    /// platform.
    virtual unsigned getUniqueMemoryTypeStrings(HSTVector<std::string>& out) const;
    /// Banks of `type`, spelled as `getUniqueMemoryTypeStrings` gives it; otherwise 0 or empty.
    virtual unsigned getMemoryTypeCount(const std::string& type) const;
    virtual unsigned getMemoryIndex(const std::string& type, unsigned n) const;
    /// Always "16GB" for a bank of an indexed platform; else the size text of the last interface of that type.
    virtual std::string getMemorySize(const std::string& type, unsigned n) const;
    virtual std::string getMemorySLR(const std::string& type, unsigned n) const;
    struct MemoryBank {
        std::string type;
        unsigned number = 0;  ///< within the type
        std::string size;     ///< as by `getMemorySize`
        std::string slr;
    };
    /// All banks, by type and number: what the queries above give for each, in one pass.
    HSTVector<MemoryBank> getMemoryBanks() const;

    virtual std::string getInterfaceDesc() const = 0;
    /// Path of the archive that the platform was read from.
    virtual const std::string& getPlatformFile() const;
    virtual void getBoardImgZipEntries(HSTVector<std::string>& out) const = 0;
    virtual void getTargetCategories(HSTVector<std::string>& out) const = 0;
    virtual void getDevices(HSTVector<HTEQDevice*>& out) const = 0;
    /// The first device with exactly that name, or null.
    virtual HPLDevice* getDevice(const std::string& name) const = 0;

    // If several clocks have the given name or id, the last one is used. Frequencies are the texts of the file.
    virtual void getSystemClockNames(HSTVector<std::string>& out) const;
    virtual void getCpuClockNames(HSTVector<std::string>& out) const;
    virtual std::string getClockFrequency(const std::string& name) const;
    virtual void getAllClockFrequencies(HSTVector<std::string>& names, HSTVector<std::string>& frequencies) const;
    /// Appends "BRAM", "DSP", "LUT", "FF", "REG" with their counts in decimal; only counts above 0.
    virtual void getAllResources(HSTVector<std::string>& types, HSTVector<std::string>& counts) const;
    virtual std::string getClockId(const std::string& name) const;
    virtual std::string getPlatformFrequency(int id) const;
    virtual HTEQSystemClock* getDefaultClock() const;
    virtual std::string getDefaultClockFrequency() const;
    /// Decimal text, whether or not there is such a clock.
    virtual std::string getDefaultClockId() const;
    virtual std::string getDefaultClockName() const;

    virtual int getBRAMCount() const;
    virtual int getDSPCount() const;
    virtual int getLUTCount() const;
    virtual int getFFCount() const;
    virtual int getRegisterCount() const;
    virtual unsigned getNumComputeUnits() const = 0;
    virtual std::string getHostArch() const = 0;
    virtual HSTFwdIter<HTEQSystemClock*>* createSystemClockIter() const;
    virtual void getSystemClocks(HSTVector<HTEQSystemClock*>& out) const;
    virtual HSTFwdIter<HTEQHardwareIPParam*>* createIPParamIter() const;
    virtual void getHardwareIPParams(HSTVector<HTEQHardwareIPParam*>& out) const;
    virtual HSTFwdIter<HTEQHardwareNocConnectivity*>* createNocConnectivityIter() const;
    virtual HSTFwdIter<HTEQHardwareBusInterface*>* createBusInterfaceIter() const;
    virtual void getNocConnectivity(HSTVector<HTEQHardwareNocConnectivity*>& out) const;
    virtual void getBusInterfaces(HSTVector<HTEQHardwareBusInterface*>& out) const;
    /// The first with exactly that name, or null. Interfaces of the network on chip are not considered.
    virtual HTEQHardwareBusInterface* getBusInterfaceByName(const std::string& name) const;
    /// Indexed ones first, then the others.
    virtual void getMemoryBusInterfaces(HSTVector<HTEQHardwareBusInterface*>& out) const;
    /// Text of the hpfm member.
    virtual const std::string& getHpfmString() const;
    /// Name of the hardware database, which is made from the archive's hardware definition on the first call.
    virtual std::string getHwDbName() const;
    virtual HHSMHardwareDb* getHwDb() const;
    virtual HHSMHardwareDb* getHwDb(const std::string& name) const;
    virtual void getFeatureRoms(HSTVector<HTEQHardwareFeatureRom*>& out) const;
    virtual HSTFwdIter<HTEQHardwareFeatureRom*>* createFeatureRomIter() const;
    virtual bool hasDimmConnectors() const = 0;
    virtual void getDimmConnectors(HSTVector<std::string>& out) const = 0;
    virtual void getLockedDimmConnectors(HSTVector<std::string>& out) const = 0;
    virtual void getConnectedDimmConnectors(HSTVector<std::string>& names,
                                            HSTVector<std::string>& connectedNames) const = 0;
    virtual std::string getConnectorDisplayName(const std::string& name) const = 0;
    virtual void getValidSLRNames(HSTVector<std::string>& out) const = 0;

    // The tool that generated the platform.
    virtual const std::string& getGeneratedName() const;
    virtual const std::string& getGeneratedVersion() const;
    virtual unsigned getGeneratedChangeList() const;
    virtual const std::string& getGeneratedIpChangeList() const;
    virtual const std::string& getGeneratedSharedDataChangeList() const;
    virtual const std::string& getGeneratedTimestamp() const;
    virtual bool isGeneratedByLink() const;
    virtual const std::string& getIdCode() const;
    virtual const std::string& getExtendedIdCode() const;

    /// Member name of the last file of the type, whose case is ignored; empty if there is none.
    virtual std::string getFile(const std::string& type) const = 0;
    virtual std::string getFile(FileType type) const = 0;
    /// Whether `getFile` is not empty.
    virtual bool hasFile(const std::string& type) const = 0;
    virtual bool hasFile(FileType type) const = 0;
    /// Text of the archive's extension metadata; empty if there is none or it cannot be read.
    virtual std::string getExtMetaJsonAsString() const = 0;

    virtual bool supportsHardware() const;
    virtual bool supportsSWEmulation() const;
    virtual bool supportsHWEmulation() const;
    virtual bool supportsTwoHwEmuBd() const;
    /// What `isMemoryResourceIndexed` has found so far; false before its first call.
    virtual bool supportsMemoryResourceIndex() const;
    virtual void setUsesNIFD(bool value);
    virtual bool usesNIFD() const;
    virtual FeatureRomRange getFeatureRomVecRange() const;
    /// Fills `tree` from the extension metadata; leaves it unchanged if the text is empty. Throws the property tree's
    /// json_parser_error if the text is not JSON.
    virtual void getExtMetaJsonAsPtree(ptree& tree) const = 0;
    /// An expandable platform is one that a link step may add kernels to; any other is fixed.
    virtual void setExpandable(bool value);
    virtual void setUnifiedPlatform(bool value);
    virtual void setName(const std::string& name);
    virtual void setDescription(const std::string& text);
    virtual void setDetailedDescription(const std::string& text);
    virtual void setVendor(const std::string& vendor);
    virtual void setBoardId(const std::string& boardId);
    virtual void setComputedDesignIntent(HTEQDesignIntentStorage::Key key, bool value) = 0;
    virtual void setExplicitDesignIntent(HTEQDesignIntentStorage::Key key, bool value) = 0;
    virtual void setPlatformFile(const std::string& path);
    // The factories append a new object with its defaults.
    virtual HTEQHardwareIPParam* addHardwareIPParam();
    virtual HTEQHardwareNocConnectivity* addNocConnectivity();
    virtual HTEQHardwareBusInterface* addBusInterface();
    virtual HTEQSystemClock* addSystemClock();
    virtual HTEQHardwareFeatureRom* addFeatureRom();

    /// @name Kind
    /// @{
    bool isUnifiedPlatform() const { return unifiedPlatform_; }
    bool isExpandable() const { return expandable_; }
    void setSupportsSWEmulation(bool value) { supportsSWEmulation_ = value; }
    void setSupportsHardware(bool value) { supportsHardware_ = value; }
    void setSupportsHWEmulation(bool value) { supportsHWEmulation_ = value; }
    bool isHWEmuPlatform() const { return isHWEmuPlatform_; }
    /// True also sets the support of hardware emulation; false does not change it.
    void setIsHWEmuPlatform(bool value);
    /// Whether it was read from the emulation directory of its parent's archive.
    bool isChildHardwareEmuPlatform() const { return isChildHardwareEmuPlatform_; }
    void setIsChildHardwareEmuPlatform(bool value) { isChildHardwareEmuPlatform_ = value; }
    void setSupportsTwoHwEmuBd(bool value) { supportsTwoHwEmuBd_ = value; }
    const HTEQDesignIntentStorage& getDesignIntent() const { return designIntent_; }
    /// Whether the platform uses partial reconfiguration: true unless a reader sets it.
    bool usesPR() const { return usesPR_; }
    void setUsesPR(bool value) { usesPR_ = value; }
    bool isStatic() const { return isStatic_; }
    void setStatic(bool value) { isStatic_ = value; }
    bool isRM() const { return isRM_; }
    void setRM(bool value) { isRM_ = value; }
    /// The state's text; `getState` compares it exactly.
    const std::string& getPlatformState() const { return platformState_; }
    void setPlatformState(std::string state) { platformState_ = std::move(state); }
    PlatformState getState() const;
    void setState(PlatformState state);
    bool isPreSynthFlatShell() const;
    bool isSynthFlatShell() const;
    bool isFlatShell() const;
    /// @}

    /// @name From the platform's files
    /// @{
    int getDefaultClkId() const { return defaultClkId_; }
    void setDefaultClkId(int id) { defaultClkId_ = id; }
    void setBRAMCount(int count) { bramCount_ = count; }
    void setDSPCount(int count) { dspCount_ = count; }
    void setLUTCount(int count) { lutCount_ = count; }
    void setFFCount(int count) { ffCount_ = count; }
    void setGeneratedName(std::string value) { generatedName_ = std::move(value); }
    void setGeneratedVersion(std::string value) { generatedVersion_ = std::move(value); }
    void setGeneratedChangeList(unsigned value) { generatedChangeList_ = value; }
    void setGeneratedIpChangeList(std::string value) { generatedIpChangeList_ = std::move(value); }
    void setGeneratedSharedDataChangeList(std::string value) { generatedSharedDataChangeList_ = std::move(value); }
    void setGeneratedTimestamp(std::string value) { generatedTimestamp_ = std::move(value); }
    const std::string& getFlashInterfaceType() const { return flashInterfaceType_; }
    void setFlashInterfaceType(std::string value) { flashInterfaceType_ = std::move(value); }
    const std::string& getFlashOffsetAddress() const { return flashOffsetAddress_; }
    void setFlashOffsetAddress(std::string value) { flashOffsetAddress_ = std::move(value); }
    const std::string& getFlashSize() const { return flashSize_; }
    void setFlashSize(std::string value) { flashSize_ = std::move(value); }
    void setIdCode(std::string value) { idCode_ = std::move(value); }
    void setExtendedIdCode(std::string value) { extendedIdCode_ = std::move(value); }
    void setGeneratedByLink(bool value) { generatedByLink_ = value; }
    bool isGeneratedBySwEmuLink() const { return generatedBySwEmuLink_; }
    void setGeneratedBySwEmuLink(bool value) { generatedBySwEmuLink_ = value; }
    bool hasExternalSources() const { return hasExternalSources_; }
    void setHasExternalSources(bool value) { hasExternalSources_ = value; }
    bool hasRQAContent() const { return hasRQAContent_; }
    void setHasRQAContent(bool value) { hasRQAContent_ = value; }
    const std::string& getDrBdInstName() const { return drBdInstName_; }
    void setDrBdInstName(std::string value) { drBdInstName_ = std::move(value); }
    /// Whether there is a simulation binary.
    bool hasSimContent() const;
    /// @}

    /// @name Bus interfaces and clocks
    /// Bus type and mode are compared without regard to case.
    /// @{
    int getBusInterfaceMaxDataWidth() const;
    unsigned getMaxAXIMMManagers() const;
    unsigned getMaxAXIMMSubordinates() const;
    unsigned getMaxInterrupts() const;
    bool hasUserDefinedScalableClocks() const;
    bool hasScalableClocks() const;
    bool hasFixedClocks() const;
    /// @}

    /// @name Memory banks
    /// @{
    /// Append the memory interfaces of one kind and return the new size of `out`.
    std::size_t getMemoryResourceBusInterfacesIndexed_(HSTVector<HTEQHardwareBusInterface*>& out) const;
    std::size_t getMemoryResourceBusInterfacesNonIndexed_(HSTVector<HTEQHardwareBusInterface*>& out) const;
    void setHBMPresent() { hbmPresent_ = true; }
    bool isHBMPresent() const { return hbmPresent_; }
    /// Counts one bank of an HBM instance that may be assigned automatically. Only the first instance is tracked: any
    /// other sends "@74-261@" and is not counted.
    void updateHBMBankInfo(const std::string& instance, bool isDefault);
    std::uint64_t getHBMBankCount() const { return hbmBankCount_; }
    std::uint64_t getHBMDefaultBankCount() const { return hbmDefaultBankCount_; }
    const std::string& getHBMInstanceName() const { return hbmInstanceName_; }
    void setNormalizeMemoryBanks(bool value) { normalizeMemoryBanks_ = value; }
    /// Writes a paragraph for the user if some but not all automatic HBM banks are default banks.
    void issueNormalizeMemoryBanksMessage(std::ostream& out) const;
    /// @}

    /// @name Design, reconfigurable partitions
    /// @{
    HTEQDesignIPInstance* addDesignIPInstance();
    HSTFwdIter<HTEQDesignIPInstance*>* createDesignIPInstanceIter() const;
    std::uint32_t getDesignID() const { return designIDs_->getDesignID(); }
    void setDesignID(std::uint32_t id) { designIDs_->setDesignID(id); }
    std::uint32_t getParentID() const { return designIDs_->getParentID(); }
    void setParentID(std::uint32_t id) { designIDs_->setParentID(id); }
    std::uint32_t getNodeID() const { return designIDs_->getNodeID(); }
    void setNodeID(std::uint32_t id) { designIDs_->setNodeID(id); }
    std::uint32_t getFunctionID() const { return designIDs_->getFunctionID(); }
    void setFunctionID(std::uint32_t id) { designIDs_->setFunctionID(id); }
    std::uint32_t getTILNodeID() const { return designIDs_->getTILNodeID(); }
    void setTILNodeID(std::uint32_t id) { designIDs_->setTILNodeID(id); }
    std::uint32_t getTILUniqueID() const { return designIDs_->getTILUniqueID(); }
    void setTILUniqueID(std::uint32_t id) { designIDs_->setTILUniqueID(id); }
    std::uint32_t getTILPuID() const { return designIDs_->getTILPuID(); }
    void setTILPuID(std::uint32_t id) { designIDs_->setTILPuID(id); }
    /// The platform's own ids.
    const HTEQReconfigPartition& getDesignIDs() const { return *designIDs_; }
    const HSTVector<HTEQReconfigPartition*>& getReconfigPartitions() const { return reconfigPartitions_.items(); }
    HTEQReconfigPartition* addReconfigPartition();
    /// The first with that node id, or null.
    HTEQReconfigPartition* findReconfigPartition(std::uint32_t nodeId) const;
    /// Of the core of the device "fpga0".
    std::string getReconfigModuleName() const;
    // The next five load other platforms; they are defined with the loader.
    /// Node id of the platform at `file`; 0 if it has no hardware. Throws like the loader's constructor.
    std::uint32_t getNodeIDFromLfa(const std::string& file) const;
    /// Whether `file` is a file whose node id belongs to one of the partitions.
    bool isValidRmLfa(const std::string& file) const;
    /// Whether that is true for all, and no two belong to the same partition.
    bool validateRmLfaFiles(const HSTVector<std::string>& files) const;
    /// A database of a static platform together with its modules; null if the modules do not fit.
    HHSMHardwareDb* createHwDb(const HSTVector<std::string>& rmFiles) const;
    HHSMHardwareDb* createHwDb(const std::string& name, const HSTVector<std::string>& rmFiles) const;
    /// A database from the archive's hardware definition; null if it has none. If `name` is not empty and names an
    /// existing database, that one is returned.
    HHSMHardwareDb* createHwDb() const;
    HHSMHardwareDb* createHwDb(const std::string& name) const;
    /// Whether the archive has a hardware definition.
    bool hasHardwareDef_() const;
    /// Names the database that `getHwDb` returns. Unless the name is empty, none is made from the archive.
    void setHwDbName(std::string name) { hwDbName_ = std::move(name); }
    /// @}

    /// @name Tile array
    /// The partitions of a fixed platform are read from the archive's tile-array project on demand, which throws
    /// HEXAlgException if their file is not JSON.
    /// @{
    HTEQTilHardware& getTilHardware() { return tilHardware_; }
    const HTEQTilHardware& getTilHardware() const { return tilHardware_; }
    void initTilPartitions() const;
    bool hasTilPartitions() const;
    HSTVector<HTEQTilPartition>& getTilPartitions();
    const HSTVector<HTEQTilPartition>& getTilPartitions() const;
    /// The first with exactly that instance name, else a shared empty partition.
    const HTEQTilPartition& findTilPartition(const std::string& tilInst) const;
    /// Whether any partition has a part of that name.
    bool hasTilPartition(const std::string& name) const;
    /// Append a partition; the reference is valid until the next one is added.
    HTEQTilPartition& addTilPartition();
    HTEQTilPartition& addTilPartition(int startColumn, int numColumns);
    /// Adds the partitions of a file. Throws HEXAlgException if it is not JSON.
    void parseTILPartitions(const std::string& file);
    /// Puts "name" and "value" of each item of the file's list "MetaData" into `out`. A file without that list
    /// leaves it unchanged. Throws the property tree's json_parser_error if the file cannot be read or is not JSON.
    void parseMetaData(const std::string& file, std::map<std::string, std::string>& out) const;
    /// The entry "TIL_PL_INTF_ID_STR" of the tile-array project's metadata; empty if there is none.
    std::string getTILPlInterfaceIDAsString() const;
    /// Adds "tilPartitions" to the document: the partitions added so far, without reading any.
    void writeTilPartitions(teq_platform::JSONObjectWriter& writer) const;
    /// @}

    /// @name Member names in the archive, from the extension of the platform's file
    /// @{
    /// Without the dot; empty without a platform file.
    std::string getPlatformExt() const;
    std::string getJsonFileName() const;     ///< "lfa.json"
    std::string getAltJsonFileName() const;  ///< "alt_lfa.json"; "alt_" without a platform file
    std::string getXmlFileName() const;      ///< "lfa.xml"; for a child emulation platform "hw_emu/lfa.xml"
    std::string getHwEmuDir() const;         ///< "hw_emu"
    std::string getHwEmuJsonFileName() const;
    std::string getAltHwEmuJsonFileName() const;
    std::string getHwEmuXmlFileName() const;
    /// Whether the archive has emulation metadata; always false for a platform that was read from it.
    bool containsChildHardwareEmuPlatform() const;
    /// ".cfa" and ".lfa".
    static const HSTVector<std::string>& getValidPlatformExts();
    /// `ext` with its dot, compared exactly.
    static bool isValidPlatformExt(const std::string& ext);
    /// @}

    /// @name Copying files out of the archive
    /// False if the type is not in the list of files, the archive or the member cannot be read, or `destination`
    /// cannot be written; no file is then left there. Directories are made as needed.
    /// @{
    bool extract(const std::string& member, const std::string& archive, const std::string& destination) const;
    /// The file of a type. For a child emulation platform, here and below, members are in its directory.
    bool extractFile(const std::string& type, const std::string& destination) const;
    bool extractFile(FileType type, const std::string& destination) const;
    /// False also if either text is empty.
    bool extractFileFromPlatform(const std::string& member, const std::string& destination) const;
    /// `repair` marks all automatic HBM banks of the copy as default banks if only some are; it may throw
    /// HXMLException. Defined with the hpfm reader.
    bool extractHPFMFile(const std::string& destination, bool repair) const;
    bool extractDrBdFile(const std::string& destination) const;
    bool extractEmuXmlFile(const std::string& destination) const;
    bool extractEmuJsonFile(const std::string& destination) const;
    bool extractNTSFile(const std::string& destination) const;
    bool extractNCRFile(const std::string& destination) const;
    /// The tile-array project, and files in it. Older archives hold some of these as separate files.
    bool extractTILPRJFile(const std::string& destination) const;
    bool extractLARCHFile(const std::string& destination) const;
    bool extractINTFCSTFile(const std::string& destination) const;
    bool extractINTFSOLFile(const std::string& destination) const;
    bool extractTILCSTFile(const std::string& destination) const;
    bool extractTILMetadataFile(const std::string& destination) const;
    /// @}

    /// @name Changing the archive
    /// Each operation replaces the archive once, atomically, and waits up to ten seconds for others who are changing
    /// it; a valid digest stays valid. They throw HEXUserException if a file cannot be read or written (with a nested
    /// reason), if `member` could not be extracted again, or if somebody else has changed the archive since
    /// `setPlatformFile` or the last change made here, because that work would be lost.
    /// @{ Writes the platform's document, followed by a line end, as the member `getJsonFileName`. Does nothing
    /// without a platform file. The document has only keys that readers store: a member written by another tool can
    /// lose keys.
    void writeToJSON();
    /// Whether `writeToJSON` and `archiveFile` write the key "platformFile", a path on the writer's machine that
    /// is not read back. Default: true.
    bool writesPlatformFile() const { return writesPlatformFile_; }
    void setWritesPlatformFile(bool value) { writesPlatformFile_ = value; }
    /// Makes `source` the one file of the type: member, document and digest are written at once. The previous member
    /// of that type stays in the archive. Throws HEXAlgException without a platform file. The list of files changes
    /// even if the archive cannot be changed.
    void archiveFile(const std::string& type, const std::string& member, const std::string& source);
    /// Writes only the member; does nothing without a platform file.
    void _archiveFile(const std::string& member, const std::string& source);
    /// See `HUTZip::attachDigestEn`; does nothing without a platform file.
    void attachDigest();
    /// @}

protected:
    HTEQDesignIntentStorage& writableDesignIntent_() { return designIntent_; }
    void storeHpfmString_(std::string text) { hpfmString_ = std::move(text); }

private:
    bool unifiedPlatform_ = false;
    bool expandable_ = true;
    bool supportsSWEmulation_ = true;
    bool supportsHardware_ = true;
    bool supportsHWEmulation_ = false;
    bool isHWEmuPlatform_ = false;
    bool isChildHardwareEmuPlatform_ = false;
    bool supportsTwoHwEmuBd_ = false;
    bool usesNIFD_ = false;
    HTEQDesignIntentStorage designIntent_;
    mutable std::optional<bool> memoryIndexed_;  ///< not known before the first memory interface is seen
    bool usesPR_ = true;
    std::string platformState_, vendor_, boardId_, name_, description_, detailedDescription_, platformFile_,
        hpfmString_;
    mutable std::string hwDbName_;
    int defaultClkId_ = 0;
    int bramCount_ = 0, dspCount_ = 0, lutCount_ = 0, ffCount_ = 0, registerCount_ = 0;
    std::string generatedName_, generatedVersion_;
    unsigned generatedChangeList_ = 0;
    std::string generatedIpChangeList_, generatedSharedDataChangeList_, generatedTimestamp_;
    std::string flashInterfaceType_, flashOffsetAddress_, flashSize_, idCode_, extendedIdCode_;
    bool generatedByLink_ = false, generatedBySwEmuLink_ = false, hasExternalSources_ = false, hasRQAContent_ = false;
    Owned<HTEQHardwareIPParam> ipParams_;
    Owned<HTEQHardwareNocConnectivity> nocConnectivity_;
    Owned<HTEQHardwareBusInterface> busInterfaces_;
    Owned<HTEQSystemClock> systemClocks_;
    Owned<HTEQHardwareFeatureRom> featureRoms_;
    Owned<HTEQDesignIPInstance> designIPInstances_;
    bool isStatic_ = false, isRM_ = false;
    std::string drBdInstName_;
    std::unique_ptr<HTEQReconfigPartition> designIDs_;
    Owned<HTEQReconfigPartition> reconfigPartitions_;
    HTEQTilHardware tilHardware_;
    mutable HSTVector<HTEQTilPartition> tilPartitions_;
    mutable bool tilPartitionsRead_ = false;
    bool writesPlatformFile_ = true;
    bool normalizeMemoryBanks_ = false;
    bool hbmPresent_ = false;
    std::uint64_t hbmBankCount_ = 0, hbmDefaultBankCount_ = 0;
    std::string hbmInstanceName_;
    std::unique_ptr<hardware::ArchiveChanges> archiveChanges_;
};
