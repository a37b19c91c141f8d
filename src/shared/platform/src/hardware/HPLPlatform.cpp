#include "platform/HPLPlatform.h"

#include <algorithm>

#include "hardware/HardwareKeys.h"
#include "hardware/MemorySize.h"
#include "hardware/PlatformFiles.h"
#include "json/JsonText.h"
#include "msg/Budget.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"

namespace {

/// The index of the text in a table whose last entry represents all other texts.
template <class Enum, std::size_t N>
Enum valueOf(const std::array<std::string_view, N>& texts, const std::string& text) {
    std::size_t number = 0;
    while (number + 1 < N && !HSTStringUtils::iequals(texts[number], text)) ++number;
    return static_cast<Enum>(number);
}

template <class Enum, std::size_t N>
std::string textOf(const std::array<std::string_view, N>& texts, Enum value) {
    return std::string(texts[std::min(static_cast<std::size_t>(value), N - 1)]);
}

}  // namespace

HPLPlatform::HPLPlatform() = default;
HPLPlatform::~HPLPlatform() = default;

void HPLPlatform::toJSON(teq_platform::JSONObjectWriter& writer) const {
    const Budget budget;
    json::writeKeys(writer, json::keysOf<HPLPlatform>(), *this);
    HTEQHardwarePlatform::toJSON(writer);
}

void HPLPlatform::UniqueTexts::add(const std::string& value) {
    if (known.insert(value).second) values.push_back(value);
}

std::string HPLPlatform::getValidBinaryContentValuesAsStr() const {
    return HSTStringUtils::join(binaryContentValues_.values, ",");
}
std::string HPLPlatform::getValidOutputTypeValuesAsStr() const {
    return HSTStringUtils::join(outputTypeValues_.values, ",");
}
const HSTVector<std::string>& HPLPlatform::getZuncCompileXpSwitches() const { return compileSwitches_; }
const HSTVector<std::string>& HPLPlatform::getZuncLinkXpSwitches() const { return linkSwitches_; }

void HPLPlatform::setComputedDesignIntent(HTEQDesignIntentStorage::Key key, bool value) {
    writableDesignIntent_().setComputedValue(key, value);
}
void HPLPlatform::setExplicitDesignIntent(HTEQDesignIntentStorage::Key key, bool value) {
    writableDesignIntent_().setExplicitValue(key, value);
}

// Host

HostArchType HPLPlatform::getHostArchType(const std::string& text) {
    return valueOf<HostArchType>(HPLHostArchMap, text);
}
std::string HPLPlatform::getHostArchAsStr(HostArchType value) { return textOf(HPLHostArchMap, value); }
std::string HPLPlatform::getHostArch() const { return getHostArchAsStr(hostArch_); }
HSTVector<std::string> HPLPlatform::getHostArchTypesAsStr() {
    return {HPLHostArchMap.begin(), HPLHostArchMap.end() - 1};
}
HostInterfaceType HPLPlatform::getHostInterfaceType(const std::string& text) {
    return valueOf<HostInterfaceType>(HPLHostInterfaceMap, text);
}
std::string HPLPlatform::getHostInterfaceAsStr(HostInterfaceType value) { return textOf(HPLHostInterfaceMap, value); }

// Identity

std::string HPLPlatform::getVersion() const {
    return std::to_string(versionMajor_) + "." + std::to_string(versionMinor_);
}
std::string HPLPlatform::getVBNVAsStr(const std::string& vendor, const std::string& board, const std::string& name,
                                      const std::string& version) {
    return HSTStringUtils::join({vendor, board, name, version}, ":");
}
std::string HPLPlatform::getVBNV() const { return getVBNVAsStr(getVendor(), getBoardId(), getName(), getVersion()); }
std::string HPLPlatform::getUniqueName() const { return getVBNV(); }
std::string HPLPlatform::getPrettyName() const {
    if (getDesignIntent().getEmbedded()) return getName();
    return HSTStringUtils::toUpper(getBoardId()) + " (" + getName() + ")";
}
std::string HPLPlatform::getDeviceName() const {
    return HSTStringUtils::join(
        {getVendor(), getBoardId(), getName(), std::to_string(versionMajor_), std::to_string(versionMinor_)}, "_");
}

std::string HPLPlatform::getInterfaceDesc() const {
    if (!getDesignIntent().getServerManaged() && !getDesignIntent().getExternalHost()) return {};
    if (!interfaces_.empty()) {
        const HPLInterface& first = **interfaces_.begin();
        if (!first.getName().empty() && !first.getType().empty()) return first.getName() + " " + first.getType();
    }
    return HSTStringUtils::iequals(getFpgaDevice(), "tzq9kp") ? "PCIe gen3x16" : "PCIe gen3x8";
}

void HPLPlatform::getTargetCategories(HSTVector<std::string>& out) const { out.emplace_back("Acceleration"); }

bool HPLPlatform::isEquals(const HPLPlatform& other) const {
    const auto document = [](const HPLPlatform& platform) {
        teq_platform::JSONObjectWriter writer;
        platform.toJSON(writer);
        return writer.text();
    };
    return HSTStringUtils::iequals(document(*this), document(other));
}

// Devices

HPLDevice* HPLPlatform::addDevice() { return devices_.add(); }
HSTFwdIter<HPLDevice*>* HPLPlatform::createDeviceIter() const { return devices_.makeIter(); }
void HPLPlatform::getDevices(HSTVector<HTEQDevice*>& out) const {
    out.insert(out.end(), devices_.begin(), devices_.end());
}
HPLDevice* HPLPlatform::getDevice(const std::string& name) const {
    return devices_.first([&](const HPLDevice& device) { return device.getName() == name; });
}
const HPLCore* HPLPlatform::getFirstCore_() const {
    const HPLDevice* device = getDevice("fpga0");
    return device ? &device->getReadOnlyCore() : nullptr;
}

unsigned HPLPlatform::getNumComputeUnits() const {
    return devices_.empty() ? 10 : devices_.items().back()->getReadOnlyCore().getNumComputeUnits();
}
int HPLPlatform::getRegisterCount() const {
    const HPLCore* core = getFirstCore_();
    return core ? static_cast<int>(HSTStringUtils::toNumber(core->getRegisterCount())) : 0;
}
unsigned HPLPlatform::getOCLRegionCount() const { return static_cast<unsigned>(devices_.size()); }
void HPLPlatform::getValidSLRNames(HSTVector<std::string>& out) const {
    if (const HPLCore* core = getFirstCore_()) core->getValidSLRNames(out);
}
bool HPLPlatform::usesExpandedPR() const {
    const HPLCore* core = getFirstCore_();
    return core && !core->getParentRMInstPath().empty();
}
std::string HPLPlatform::getOclInstPath() const {
    const HPLCore* core = getFirstCore_();
    return core ? core->getInstPath() : std::string();
}

// Host interfaces, memories

HPLInterface* HPLPlatform::addInterface() { return interfaces_.add(); }
HSTFwdIter<HPLInterface*>* HPLPlatform::createInterfaceIter() const { return interfaces_.makeIter(); }
HPLMemory* HPLPlatform::addMemory() { return memories_.add(); }
HSTFwdIter<HPLMemory*>* HPLPlatform::createMemoryIter() const { return memories_.makeIter(); }
unsigned HPLPlatform::getNumDDRs() const { return static_cast<unsigned>(memories_.size()); }
std::string HPLPlatform::getMemType() const {
    return memories_.empty() ? "ddr4" : memories_.items().front()->getType();
}
int HPLPlatform::getMemSizeInGb(std::size_t index) const {
    return memories_.empty() ? 0 : hardware::gigabytesOf(memories_.items().at(index)->getSize());
}
long long HPLPlatform::getTotalMemSizeInGb() const {
    long long total = 0;
    for (const HPLMemory* memory : memories_) total += hardware::gigabytesOf(memory->getSize());
    return total;
}
std::string HPLPlatform::getMemSize() const {
    const long long total = getTotalMemSizeInGb();
    return std::to_string(total == 0 ? 8 : total) + " GB";
}

// Board

std::string HPLPlatform::getBoardPart() const { return board_.getBoardPart(); }
std::string HPLPlatform::getBoardConnectionsString() const { return board_.getBoardConnectionsString(); }
std::string HPLPlatform::getLockedBoardConnectionsString() const { return board_.getLockedBoardConnectionsString(); }
std::string HPLPlatform::getUnlockedBoardConnectionsString() const {
    return board_.getUnlockedBoardConnectionsString();
}
bool HPLPlatform::hasDimmConnectors() const { return board_.hasDimmConnectors(); }
void HPLPlatform::getDimmConnectors(HSTVector<std::string>& out) const { board_.getDimmConnectors(out); }
void HPLPlatform::getLockedDimmConnectors(HSTVector<std::string>& out) const { board_.getLockedDimmConnectors(out); }
void HPLPlatform::getConnectedDimmConnectors(HSTVector<std::string>& names,
                                             HSTVector<std::string>& connectedNames) const {
    board_.getConnectedDimmConnectors(names, connectedNames);
}
std::string HPLPlatform::getConnectorDisplayName(const std::string& name) const {
    return board_.getConnectorDisplayName(name);
}
void HPLPlatform::getBoardImgZipEntries(HSTVector<std::string>& out) const {
    out.insert(out.end(), {board_.getImgFileLdpi(), board_.getImgFileMdpi(), board_.getImgFileHdpi()});
}

// Files

HPLFile* HPLPlatform::addFile(const std::string& type, const std::string& name) { return files_.add(type, name); }
void HPLPlatform::removeFile(HPLFile* file) { files_.remove(file); }
void HPLPlatform::removeFileType(const std::string& type) {
    files_.removeAll([&](const HPLFile& file) { return file.getType() == type; });
}
HPLFile* HPLPlatform::findFile(const std::string& type) const {
    return files_.first([&](const HPLFile& file) { return file.getType() == type; });
}
HSTFwdIter<HPLFile*>* HPLPlatform::createFileVecIter() const { return files_.makeIter(); }

std::string HPLPlatform::getFile(const std::string& type) const {
    const HPLFile* file =
        files_.last([&](const HPLFile& candidate) { return HSTStringUtils::iequals(candidate.getType(), type); });
    return file ? file->getName() : std::string();
}
std::string HPLPlatform::getFile(FileType type) const { return getFile(HTEQPfmFileTypes::toString(type)); }
bool HPLPlatform::hasFile(const std::string& type) const { return !getFile(type).empty(); }
bool HPLPlatform::hasFile(FileType type) const { return !getFile(type).empty(); }

std::string HPLPlatform::getXmlFile() const { return HUTFile::getCanonicalName(xmlFile_); }
std::string HPLPlatform::getDirectory() const { return HUTFile::getParent(xmlFile_); }

std::string HPLPlatform::getBoardRepo() const {
    return hardware::unpackDirectory(getPlatformFile(), getFile("BOARD_REPO_PATH"));
}

std::string HPLPlatform::getExtMetaJsonFile_() const {
    const std::string member = getFile("META_JSON");
    return member.empty() ? getFile("EXT_META_JSON") : member;
}

std::string HPLPlatform::getExtMetaJsonAsString() const {
    const std::string member = getExtMetaJsonFile_();
    return member.empty() ? std::string() : hardware::memberText(getPlatformFile(), member);
}

void HPLPlatform::getExtMetaJsonAsPtree(ptree& tree) const {
    const std::string text = getExtMetaJsonAsString();
    if (!text.empty()) {
        const std::string member = getExtMetaJsonFile_();
        json::parse(text, getPlatformFile() + "!" + member,
                    {.file = getPlatformFile(), .member = member, .name = "not-json"}, tree);
    }
}
