#include "platform/HTEQHardwarePlatform.h"

#include <algorithm>
#include <ostream>

#include "archive/PlatformMembers.h"
#include "hardware/ArchiveChanges.h"
#include "hardware/ClockSelection.h"
#include "hardware/HardwareDatabase.h"
#include "hardware/HardwareKeys.h"
#include "hardware/MemoryBanks.h"
#include "hardware/PlatformFiles.h"
#include "hardware/StateRules.h"
#include "hardware/TileProject.h"
#include "msg/Budget.h"
#include "msg/ComMsgMgr.h"
#include "platform/HPLDevice.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQSystemClock.h"
#include "platform/HTEQTilPartitionsJsonReader.h"
#include "platform/PlatformTilprjFileExtractor.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"

namespace {

using archive::PlatformMember;
using hardware::MemoryBanks;

std::string memberName(PlatformMember member, const HTEQHardwarePlatform& platform) {
    return archive::platformMember(member, platform.getPlatformExt());
}

template <class T>
void append(HSTVector<T>& out, HSTFwdIter<T>* created) {
    const std::unique_ptr<HSTFwdIter<T>> it(created);
    while (it->hasNext()) out.push_back(it->next());
}

HTEQDevice* firstDevice(const HTEQHardwarePlatform& platform) {
    HSTVector<HTEQDevice*> devices;
    platform.getDevices(devices);
    return devices.empty() ? nullptr : devices.front();
}

/// Counts interfaces of a bus type and, unless it is empty, a mode.
unsigned countBuses(const hardware::BusInterfaces& buses, const char* type, const char* mode) {
    return static_cast<unsigned>(std::count_if(buses.begin(), buses.end(), [&](const HTEQHardwareBusInterface* bus) {
        return HSTStringUtils::iequals(bus->getBusTypeRef(), type) &&
               (!*mode || HSTStringUtils::iequals(bus->getMode(), mode));
    }));
}

}  // namespace

HTEQHardwarePlatform::HTEQHardwarePlatform()
    : designIDs_(std::make_unique<HTEQReconfigPartition>()),
      archiveChanges_(std::make_unique<hardware::ArchiveChanges>()) {}
HTEQHardwarePlatform::~HTEQHardwarePlatform() = default;

void HTEQHardwarePlatform::toJSON(teq_platform::JSONObjectWriter& writer) const {
    const Budget budget;
    json::writeKeys(writer, json::keysOf<HTEQHardwarePlatform>(), *this);
}

// Fields

const std::string& HTEQHardwarePlatform::getName() const { return name_; }
const std::string& HTEQHardwarePlatform::getVendor() const { return vendor_; }
const std::string& HTEQHardwarePlatform::getBoardId() const { return boardId_; }
const std::string& HTEQHardwarePlatform::getDescription() const { return description_; }
const std::string& HTEQHardwarePlatform::getDetailedDescription() const { return detailedDescription_; }
const std::string& HTEQHardwarePlatform::getPlatformFile() const { return platformFile_; }
const std::string& HTEQHardwarePlatform::getHpfmString() const { return hpfmString_; }
int HTEQHardwarePlatform::getBRAMCount() const { return bramCount_; }
int HTEQHardwarePlatform::getDSPCount() const { return dspCount_; }
int HTEQHardwarePlatform::getLUTCount() const { return lutCount_; }
int HTEQHardwarePlatform::getFFCount() const { return ffCount_; }
int HTEQHardwarePlatform::getRegisterCount() const { return registerCount_; }
const std::string& HTEQHardwarePlatform::getGeneratedName() const { return generatedName_; }
const std::string& HTEQHardwarePlatform::getGeneratedVersion() const { return generatedVersion_; }
unsigned HTEQHardwarePlatform::getGeneratedChangeList() const { return generatedChangeList_; }
const std::string& HTEQHardwarePlatform::getGeneratedIpChangeList() const { return generatedIpChangeList_; }
const std::string& HTEQHardwarePlatform::getGeneratedSharedDataChangeList() const {
    return generatedSharedDataChangeList_;
}
const std::string& HTEQHardwarePlatform::getGeneratedTimestamp() const { return generatedTimestamp_; }
bool HTEQHardwarePlatform::isGeneratedByLink() const { return generatedByLink_; }
const std::string& HTEQHardwarePlatform::getIdCode() const { return idCode_; }
const std::string& HTEQHardwarePlatform::getExtendedIdCode() const { return extendedIdCode_; }
bool HTEQHardwarePlatform::supportsHardware() const { return supportsHardware_; }
bool HTEQHardwarePlatform::supportsSWEmulation() const { return supportsSWEmulation_; }
bool HTEQHardwarePlatform::supportsHWEmulation() const { return supportsHWEmulation_; }
bool HTEQHardwarePlatform::supportsTwoHwEmuBd() const { return supportsTwoHwEmuBd_; }
bool HTEQHardwarePlatform::usesNIFD() const { return usesNIFD_; }
void HTEQHardwarePlatform::setUsesNIFD(bool value) { usesNIFD_ = value; }
void HTEQHardwarePlatform::setExpandable(bool value) { expandable_ = value; }
void HTEQHardwarePlatform::setUnifiedPlatform(bool value) { unifiedPlatform_ = value; }
void HTEQHardwarePlatform::setName(const std::string& name) { name_ = name; }
void HTEQHardwarePlatform::setDescription(const std::string& text) { description_ = text; }
void HTEQHardwarePlatform::setDetailedDescription(const std::string& text) { detailedDescription_ = text; }
void HTEQHardwarePlatform::setVendor(const std::string& vendor) { vendor_ = vendor; }
void HTEQHardwarePlatform::setBoardId(const std::string& boardId) { boardId_ = boardId; }
void HTEQHardwarePlatform::setPlatformFile(const std::string& path) {
    platformFile_ = path;
    archiveChanges_->follow(path);
}

void HTEQHardwarePlatform::setIsHWEmuPlatform(bool value) {
    isHWEmuPlatform_ = value;
    if (value) supportsHWEmulation_ = true;
}

// Lists

HTEQHardwareIPParam* HTEQHardwarePlatform::addHardwareIPParam() { return ipParams_.add(); }
HTEQHardwareNocConnectivity* HTEQHardwarePlatform::addNocConnectivity() { return nocConnectivity_.add(); }
HTEQHardwareBusInterface* HTEQHardwarePlatform::addBusInterface() { return busInterfaces_.add(); }
HTEQSystemClock* HTEQHardwarePlatform::addSystemClock() { return systemClocks_.add(); }
HTEQHardwareFeatureRom* HTEQHardwarePlatform::addFeatureRom() { return featureRoms_.add(); }
HTEQDesignIPInstance* HTEQHardwarePlatform::addDesignIPInstance() { return designIPInstances_.add(); }
HTEQReconfigPartition* HTEQHardwarePlatform::addReconfigPartition() { return reconfigPartitions_.add(); }

HSTFwdIter<HTEQSystemClock*>* HTEQHardwarePlatform::createSystemClockIter() const { return systemClocks_.makeIter(); }
HSTFwdIter<HTEQHardwareIPParam*>* HTEQHardwarePlatform::createIPParamIter() const { return ipParams_.makeIter(); }
HSTFwdIter<HTEQHardwareNocConnectivity*>* HTEQHardwarePlatform::createNocConnectivityIter() const {
    return nocConnectivity_.makeIter();
}
HSTFwdIter<HTEQHardwareBusInterface*>* HTEQHardwarePlatform::createBusInterfaceIter() const {
    return busInterfaces_.makeIter();
}
HSTFwdIter<HTEQHardwareFeatureRom*>* HTEQHardwarePlatform::createFeatureRomIter() const {
    return featureRoms_.makeIter();
}
HSTFwdIter<HTEQDesignIPInstance*>* HTEQHardwarePlatform::createDesignIPInstanceIter() const {
    return designIPInstances_.makeIter();
}

void HTEQHardwarePlatform::getSystemClocks(HSTVector<HTEQSystemClock*>& out) const {
    append(out, createSystemClockIter());
}
void HTEQHardwarePlatform::getHardwareIPParams(HSTVector<HTEQHardwareIPParam*>& out) const {
    append(out, createIPParamIter());
}
void HTEQHardwarePlatform::getNocConnectivity(HSTVector<HTEQHardwareNocConnectivity*>& out) const {
    out.insert(out.end(), nocConnectivity_.begin(), nocConnectivity_.end());
}
void HTEQHardwarePlatform::getBusInterfaces(HSTVector<HTEQHardwareBusInterface*>& out) const {
    append(out, createBusInterfaceIter());
}
void HTEQHardwarePlatform::getFeatureRoms(HSTVector<HTEQHardwareFeatureRom*>& out) const {
    append(out, createFeatureRomIter());
}
HTEQHardwarePlatform::FeatureRomRange HTEQHardwarePlatform::getFeatureRomVecRange() const {
    return {featureRoms_.begin(), featureRoms_.end()};
}

// Identity, state

std::string HTEQHardwarePlatform::getUniqueName() const { return name_; }
std::string HTEQHardwarePlatform::getPrettyName() const { return boardId_; }

std::string HTEQHardwarePlatform::getPartName() const {
    const HTEQDevice* device = firstDevice(*this);
    return device ? device->getPartName() : std::string();
}
std::string HTEQHardwarePlatform::getFpgaPart() const {
    const HTEQDevice* device = firstDevice(*this);
    return device ? device->getPartArch() : std::string();
}
std::string HTEQHardwarePlatform::getFpgaDevice() const {
    const HTEQDevice* device = firstDevice(*this);
    return device ? device->getPartDevice() : std::string();
}

HTEQHardwarePlatform::PlatformState HTEQHardwarePlatform::getState() const {
    return hardware::stateOf(platformState_);
}
void HTEQHardwarePlatform::setState(PlatformState state) { platformState_ = hardware::stateText(state); }
bool HTEQHardwarePlatform::isPreSynthFlatShell() const {
    return hardware::isFlatShellIn(*this, PlatformState::pre_synth);
}
bool HTEQHardwarePlatform::isSynthFlatShell() const { return hardware::isFlatShellIn(*this, PlatformState::synth); }
bool HTEQHardwarePlatform::isFlatShell() const { return isPreSynthFlatShell() || isSynthFlatShell(); }
bool HTEQHardwarePlatform::hasSimContent() const { return !getFile("SIM_BINARY").empty(); }

void HTEQHardwarePlatform::getAllResources(HSTVector<std::string>& types, HSTVector<std::string>& counts) const {
    const std::pair<const char*, int> resources[] = {{"BRAM", getBRAMCount()},
                                                     {"DSP", getDSPCount()},
                                                     {"LUT", getLUTCount()},
                                                     {"FF", getFFCount()},
                                                     {"REG", getRegisterCount()}};
    for (const auto& [type, count] : resources) {
        if (count <= 0) continue;
        types.emplace_back(type);
        counts.push_back(std::to_string(count));
    }
}

// Clocks

void HTEQHardwarePlatform::getSystemClockNames(HSTVector<std::string>& out) const {
    for (const HTEQSystemClock* clock : systemClocks_) out.push_back(clock->getName());
}
void HTEQHardwarePlatform::getCpuClockNames(HSTVector<std::string>& out) const { out.emplace_back("CPU"); }

void HTEQHardwarePlatform::getAllClockFrequencies(HSTVector<std::string>& names,
                                                  HSTVector<std::string>& frequencies) const {
    for (const HTEQSystemClock* clock : systemClocks_) {
        names.push_back(clock->getName());
        frequencies.push_back(clock->getFrequency());
    }
}

std::string HTEQHardwarePlatform::getClockFrequency(const std::string& name) const {
    const HTEQSystemClock* clock = hardware::clockByName(systemClocks_, name);
    return clock ? clock->getFrequency() : std::string();
}
std::string HTEQHardwarePlatform::getClockId(const std::string& name) const {
    const HTEQSystemClock* clock = hardware::clockByName(systemClocks_, name);
    return clock ? std::to_string(clock->getId()) : std::string();
}
std::string HTEQHardwarePlatform::getPlatformFrequency(int id) const {
    const HTEQSystemClock* clock = hardware::clockById(systemClocks_, id);
    return clock ? clock->getFrequency() : std::string();
}
HTEQSystemClock* HTEQHardwarePlatform::getDefaultClock() const {
    return hardware::clockById(systemClocks_, defaultClkId_);
}
std::string HTEQHardwarePlatform::getDefaultClockFrequency() const {
    const HTEQSystemClock* clock = getDefaultClock();
    return clock ? clock->getFrequency() : std::string();
}
std::string HTEQHardwarePlatform::getDefaultClockName() const {
    const HTEQSystemClock* clock = getDefaultClock();
    return clock ? clock->getName() : std::string();
}
std::string HTEQHardwarePlatform::getDefaultClockId() const { return std::to_string(defaultClkId_); }

bool HTEQHardwarePlatform::hasUserDefinedScalableClocks() const {
    const HPLDevice* device = getDevice("fpga0");
    return device && !device->getSystemClockMap().empty();
}
bool HTEQHardwarePlatform::hasScalableClocks() const {
    return hardware::hasScalableClock(systemClocks_) || hasUserDefinedScalableClocks();
}
bool HTEQHardwarePlatform::hasFixedClocks() const { return hardware::hasFixedClock(systemClocks_); }

// Bus interfaces and memory banks

HTEQHardwareBusInterface* HTEQHardwarePlatform::getBusInterfaceByName(const std::string& name) const {
    const std::unique_ptr<HSTFwdIter<HTEQHardwareBusInterface*>> it(createBusInterfaceIter());
    while (it->hasNext())
        if (HTEQHardwareBusInterface* bus = it->next(); bus->getName() == name) return bus;
    return nullptr;
}

int HTEQHardwarePlatform::getBusInterfaceMaxDataWidth() const {
    int width = 0;
    for (const HTEQHardwareBusInterface* bus : busInterfaces_) width = std::max(width, bus->getDataWidth());
    return width;
}
unsigned HTEQHardwarePlatform::getMaxAXIMMManagers() const { return countBuses(busInterfaces_, "aximm", "master"); }
unsigned HTEQHardwarePlatform::getMaxAXIMMSubordinates() const {
    return countBuses(busInterfaces_, "aximm", "slave");
}
unsigned HTEQHardwarePlatform::getMaxInterrupts() const { return countBuses(busInterfaces_, "interrupt", ""); }

bool HTEQHardwarePlatform::isMemoryResourceIndexed() const {
    if (!memoryIndexed_) memoryIndexed_ = hardware::isMemoryIndexed(busInterfaces_);
    return supportsMemoryResourceIndex();
}
bool HTEQHardwarePlatform::supportsMemoryResourceIndex() const { return memoryIndexed_.value_or(false); }

unsigned HTEQHardwarePlatform::getUniqueMemoryTypeCount() const {
    HSTVector<std::string> types;
    return getUniqueMemoryTypeStrings(types);
}
unsigned HTEQHardwarePlatform::getUniqueMemoryTypeStrings(HSTVector<std::string>& out) const {
    const auto types = MemoryBanks(busInterfaces_, isMemoryResourceIndexed()).types();
    out.insert(out.end(), types.begin(), types.end());
    return static_cast<unsigned>(types.size());
}
unsigned HTEQHardwarePlatform::getMemoryTypeCount(const std::string& type) const {
    return MemoryBanks(busInterfaces_, isMemoryResourceIndexed()).count(type);
}
unsigned HTEQHardwarePlatform::getMemoryIndex(const std::string& type, unsigned n) const {
    return MemoryBanks(busInterfaces_, isMemoryResourceIndexed()).index(type, n);
}
std::string HTEQHardwarePlatform::getMemorySize(const std::string& type, unsigned n) const {
    return MemoryBanks(busInterfaces_, isMemoryResourceIndexed()).size(type, n);
}
std::string HTEQHardwarePlatform::getMemorySLR(const std::string& type, unsigned n) const {
    return MemoryBanks(busInterfaces_, isMemoryResourceIndexed()).slr(type, n);
}
HSTVector<HTEQHardwarePlatform::MemoryBank> HTEQHardwarePlatform::getMemoryBanks() const {
    return MemoryBanks(busInterfaces_, isMemoryResourceIndexed()).all();
}

std::size_t HTEQHardwarePlatform::getMemoryResourceBusInterfacesIndexed_(
    HSTVector<HTEQHardwareBusInterface*>& out) const {
    std::copy_if(busInterfaces_.begin(), busInterfaces_.end(), std::back_inserter(out),
                 [](const HTEQHardwareBusInterface* bus) { return hardware::isIndexedMemory(*bus); });
    return out.size();
}
std::size_t HTEQHardwarePlatform::getMemoryResourceBusInterfacesNonIndexed_(
    HSTVector<HTEQHardwareBusInterface*>& out) const {
    std::copy_if(busInterfaces_.begin(), busInterfaces_.end(), std::back_inserter(out),
                 [](const HTEQHardwareBusInterface* bus) { return hardware::isNonIndexedMemory(*bus); });
    return out.size();
}
void HTEQHardwarePlatform::getMemoryBusInterfaces(HSTVector<HTEQHardwareBusInterface*>& out) const {
    getMemoryResourceBusInterfacesIndexed_(out);
    getMemoryResourceBusInterfacesNonIndexed_(out);
}

void HTEQHardwarePlatform::updateHBMBankInfo(const std::string& instance, bool isDefault) {
    if (hbmInstanceName_.empty()) hbmInstanceName_ = instance;
    if (&instance != &hbmInstanceName_ && hbmInstanceName_ != instance) {
        ComMsgMgr::sendMsg("@74-261@");
        return;
    }
    ++hbmBankCount_;
    if (isDefault) ++hbmDefaultBankCount_;
}

void HTEQHardwarePlatform::issueNormalizeMemoryBanksMessage(std::ostream& out) const {
    if (hbmPresent_ && hbmDefaultBankCount_ != 0 && hbmDefaultBankCount_ != hbmBankCount_)
        out << hardware::partlyDefaultHbmText(hbmInstanceName_) << std::endl << std::endl;
}

// Reconfigurable partitions, hardware database

HTEQReconfigPartition* HTEQHardwarePlatform::findReconfigPartition(std::uint32_t nodeId) const {
    return reconfigPartitions_.first([&](const HTEQReconfigPartition& p) { return p.getNodeID() == nodeId; });
}
std::string HTEQHardwarePlatform::getReconfigModuleName() const {
    const HPLDevice* device = getDevice("fpga0");
    return device ? device->getReadOnlyCore().getReconfigModuleName() : std::string();
}

bool HTEQHardwarePlatform::hasHardwareDef_() const { return hardware::hasDefinition(platformFile_); }
std::string HTEQHardwarePlatform::getHwDbName() const {
    if (hwDbName_.empty() && hasHardwareDef_()) hwDbName_ = hardware::makeDatabaseOf(platformFile_);
    return hwDbName_;
}
HHSMHardwareDb* HTEQHardwarePlatform::getHwDb() const {
    getHwDbName();
    return hwDbName_.empty() ? nullptr : hardware::databaseOfName(hwDbName_);
}
HHSMHardwareDb* HTEQHardwarePlatform::getHwDb(const std::string& name) const {
    return hardware::databaseOfName(name);
}
HHSMHardwareDb* HTEQHardwarePlatform::createHwDb() const { return createHwDb(std::string()); }
HHSMHardwareDb* HTEQHardwarePlatform::createHwDb(const std::string& name) const {
    if (!name.empty())
        if (HHSMHardwareDb* existing = hardware::databaseOfName(name)) return existing;
    return hasHardwareDef_() ? hardware::makeDatabaseFromHdf(platformFile_) : nullptr;
}

// Tile array

void HTEQHardwarePlatform::initTilPartitions() const {
    if (expandable_ || tilPartitionsRead_) return;
    tilPartitionsRead_ = true;
    for (HTEQTilPartition& partition : hardware::readProjectPartitions(*this))
        tilPartitions_.push_back(std::move(partition));
}
bool HTEQHardwarePlatform::hasTilPartitions() const { return !getTilPartitions().empty(); }
HSTVector<HTEQTilPartition>& HTEQHardwarePlatform::getTilPartitions() {
    initTilPartitions();
    return tilPartitions_;
}
const HSTVector<HTEQTilPartition>& HTEQHardwarePlatform::getTilPartitions() const {
    initTilPartitions();
    return tilPartitions_;
}
const HTEQTilPartition& HTEQHardwarePlatform::findTilPartition(const std::string& tilInst) const {
    for (const HTEQTilPartition& partition : getTilPartitions())
        if (partition.tilInst() == tilInst) return partition;
    return HTEQTilPartition::none();
}
bool HTEQHardwarePlatform::hasTilPartition(const std::string& name) const {
    const auto& partitions = getTilPartitions();
    return std::any_of(partitions.begin(), partitions.end(),
                       [&](const HTEQTilPartition& partition) { return partition.hasPartition(name); });
}
HTEQTilPartition& HTEQHardwarePlatform::addTilPartition() { return tilPartitions_.emplace_back(); }
HTEQTilPartition& HTEQHardwarePlatform::addTilPartition(int startColumn, int numColumns) {
    return tilPartitions_.emplace_back(startColumn, numColumns);
}
void HTEQHardwarePlatform::parseTILPartitions(const std::string& file) {
    HTEQTilPartitionsJsonReader(*this).parse(file);
}
void HTEQHardwarePlatform::parseMetaData(const std::string& file, std::map<std::string, std::string>& out) const {
    hardware::readMetaData(file, out);
}
std::string HTEQHardwarePlatform::getTILPlInterfaceIDAsString() const { return hardware::projectInterfaceId(*this); }
void HTEQHardwarePlatform::writeTilPartitions(teq_platform::JSONObjectWriter& writer) const {
    teq_platform::JSONListWriter list;
    for (const HTEQTilPartition& partition : tilPartitions_)
        list.addItem(static_cast<const teq_platform::JSONSerializable*>(&partition));
    writer.addKey("tilPartitions", std::move(list));
}

// Member names

std::string HTEQHardwarePlatform::getPlatformExt() const { return HUTFile::getExt(platformFile_); }
std::string HTEQHardwarePlatform::getJsonFileName() const { return memberName(PlatformMember::json, *this); }
std::string HTEQHardwarePlatform::getAltJsonFileName() const { return "alt_" + getJsonFileName(); }
std::string HTEQHardwarePlatform::getHwEmuDir() const { return "hw_emu"; }
std::string HTEQHardwarePlatform::getHwEmuJsonFileName() const {
    return memberName(PlatformMember::hwEmuJson, *this);
}
std::string HTEQHardwarePlatform::getAltHwEmuJsonFileName() const {
    return memberName(PlatformMember::altHwEmuJson, *this);
}
std::string HTEQHardwarePlatform::getHwEmuXmlFileName() const { return memberName(PlatformMember::hwEmuXml, *this); }
std::string HTEQHardwarePlatform::getXmlFileName() const {
    return memberName(isChildHardwareEmuPlatform_ ? PlatformMember::hwEmuXml : PlatformMember::xml, *this);
}
bool HTEQHardwarePlatform::containsChildHardwareEmuPlatform() const {
    return !isChildHardwareEmuPlatform_ && !platformFile_.empty() &&
           hardware::hasMember(platformFile_, getHwEmuJsonFileName());
}
const HSTVector<std::string>& HTEQHardwarePlatform::getValidPlatformExts() {
    static const HSTVector<std::string> validPlatformExts{".cfa", ".lfa"};
    return validPlatformExts;
}
bool HTEQHardwarePlatform::isValidPlatformExt(const std::string& ext) {
    const auto& exts = getValidPlatformExts();
    return std::find(exts.begin(), exts.end(), ext) != exts.end();
}

// Files

bool HTEQHardwarePlatform::extract(const std::string& member, const std::string& archive,
                                   const std::string& destination) const {
    return hardware::copyMember(archive, member, destination);
}
bool HTEQHardwarePlatform::extractFile(const std::string& type, const std::string& destination) const {
    return hardware::copyFileOfType(*this, type, destination);
}
bool HTEQHardwarePlatform::extractFile(FileType type, const std::string& destination) const {
    return extractFile(HTEQPfmFileTypes::toString(type), destination);
}
bool HTEQHardwarePlatform::extractFileFromPlatform(const std::string& member, const std::string& destination) const {
    return !member.empty() && !destination.empty() &&
           extract(hardware::memberOf(*this, member), platformFile_, destination);
}

bool HTEQHardwarePlatform::extractDrBdFile(const std::string& destination) const {
    return hardware::copyFileOfType(*this, "DR_BD", destination);
}
bool HTEQHardwarePlatform::extractEmuXmlFile(const std::string& destination) const {
    return hardware::copyFileOfType(*this, "EMU_XML", destination);
}
bool HTEQHardwarePlatform::extractEmuJsonFile(const std::string& destination) const {
    return hardware::copyFileOfType(*this, "EMU_JSON", destination);
}
bool HTEQHardwarePlatform::extractNTSFile(const std::string& destination) const {
    return hardware::copyFileOfType(*this, "NOC_TRAFFIC", destination);
}
bool HTEQHardwarePlatform::extractNCRFile(const std::string& destination) const {
    return hardware::copyFileOfType(*this, "NOC_SOLUTION", destination);
}
bool HTEQHardwarePlatform::extractTILPRJFile(const std::string& destination) const {
    return PlatformTilprjFileExtractor(*this).extractTILPRJFile(destination);
}
bool HTEQHardwarePlatform::extractLARCHFile(const std::string& destination) const {
    return hardware::copyProjectFile(*this, "tilarchive/morwen/logical_arch_til.larch", "ME_LOGICAL_ARCH",
                                     destination);
}
bool HTEQHardwarePlatform::extractINTFCSTFile(const std::string& destination) const {
    return hardware::copyProjectFile(*this, "tilarchive/morwen/til_interface.tilintfcst", "ME_CONSTRAINT",
                                     destination);
}
bool HTEQHardwarePlatform::extractINTFSOLFile(const std::string& destination) const {
    return hardware::copyProjectFile(*this, "tilarchive/morwen/til_interface.tilintfsol", nullptr, destination);
}
bool HTEQHardwarePlatform::extractTILCSTFile(const std::string& destination) const {
    return hardware::copyProjectFile(*this, "tilarchive/morwen/til_constraints.tilcst", nullptr, destination);
}
bool HTEQHardwarePlatform::extractTILMetadataFile(const std::string& destination) const {
    return hardware::copyProjectFile(*this, "tilarchive/morwen/tilprj_meta_data.json", nullptr, destination);
}

void HTEQHardwarePlatform::writeToJSON() { archiveChanges_->writeDocument(*this); }
void HTEQHardwarePlatform::archiveFile(const std::string& type, const std::string& member,
                                       const std::string& source) {
    archiveChanges_->archiveFile(*this, type, member, source);
}
void HTEQHardwarePlatform::_archiveFile(const std::string& member, const std::string& source) {
    archiveChanges_->addMember(*this, member, source);
}
void HTEQHardwarePlatform::attachDigest() { archiveChanges_->attachDigest(*this); }
