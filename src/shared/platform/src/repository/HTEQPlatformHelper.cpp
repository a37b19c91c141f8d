#include "platform/HTEQPlatformHelper.h"

#include "board/HBOBoardCDataManager.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQDevice.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"
#include "platform/NativePlatformRepoService.h"
#include "platform/PlatformLoader.h"
#include "repository/PlatformAnswers.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/HUTFileUtils.h"

using StringVector = HTEQPlatformHelper::StringVector;
using Helper = HTEQPlatformHelper;

namespace {

/// The answer of `object`, or an empty one without it.
template <class T, class Result, class... Args, class... Given>
std::decay_t<Result> ask(const T* object, Result (T::*question)(Args...) const, const Given&... given) {
    return object ? (object->*question)(given...) : std::decay_t<Result>();
}
/// Lets `object`, if there is one, fill lists.
template <class T, class Result, class... Args, class... Given>
void fill(const T* object, Result (T::*question)(Args...) const, Given&... given) {
    if (object) (object->*question)(given...);
}

using H = HTEQHardwarePlatform;
using P = HTEQPlatform;
using S = HTEQSoftwarePlatform;
using C = HTEQSystemConfig;

/// The texts of the configuration's processor groups that are not empty.
void addOfGroups(const C* config, const std::string& (HTEQProcessorGroup::*text)() const, StringVector& out) {
    HSTVector<HTEQProcessorGroup*> groups;
    if (config) config->getProcessorGroups(groups);
    for (const HTEQProcessorGroup* group : groups)
        if (const std::string& paths = (group->*text)(); !paths.empty()) out.push_back(paths);
}

/// Appends "NAME=VALUE" of each pair.
void addPairs(const StringVector& names, const StringVector& values, StringVector& out) {
    for (std::size_t i = 0; i < names.size(); ++i) out.push_back(names[i] + "=" + values[i]);
}

/// The one file that answers to the name, else the name.
std::string fileOf(const std::string& name, const StringVector& repoPaths) {
    if (HUTFile::exists(name)) return name;
    std::vector<std::string> files;
    teq::platform::NativePlatformRepoService().getZdfFiles(name, repoPaths, true, files);
    return files.size() == 1 ? files.front() : name;
}

}  // namespace

Helper::HTEQPlatformHelper(HTEQPlatform* platform) : direct_(platform) {
    if (platform) file_ = platform->getPlatformFile();
}

Helper::HTEQPlatformHelper(const std::string& name, const StringVector& repoPaths, const StringVector& boardRepoPaths)
    : boards_(std::make_shared<HBOBoardCDataManager>()) {
    setBoardRepoPaths(boardRepoPaths);
    file_ = fileOf(name, repoPaths);
    if (!HUTFile::exists(file_)) return;
    file_ = HUTFileUtils::makeAbsolutePath(file_);
    loaded_ = teq_platform::PlatformLoader(file_, teq_platform::HwMetadataMode::Default).load();
}

Helper::~HTEQPlatformHelper() = default;

HTEQPlatform* Helper::getPlatform() const { return loaded_ ? loaded_.get() : direct_; }
HTEQHardwarePlatform* Helper::hardware_() const { return repository::hardwareOf(getPlatform()); }
HTEQSoftwarePlatform* Helper::software_() const { return ask<P>(getPlatform(), &P::getSoftwarePlatform); }

std::string Helper::getVendor() const { return ask<P>(getPlatform(), &P::getVendor); }
std::string Helper::getLibrary() const { return ask<P>(getPlatform(), &P::getLibrary); }
std::string Helper::getName() const { return ask<P>(getPlatform(), &P::getName); }
std::string Helper::getVersion() const { return ask<P>(getPlatform(), &P::getVersion); }
std::string Helper::getDescription() const { return ask<P>(getPlatform(), &P::getDescription); }
std::string Helper::getUniqueName() const { return ask<P>(getPlatform(), &P::getUniqueName); }
std::string Helper::getPlatformBaseName() const { return ask<P>(getPlatform(), &P::getPlatformBaseName); }
std::string Helper::getPlatformFile() const { return ask<P>(getPlatform(), &P::getPlatformFile); }
std::string Helper::getPlatformDir() const { return ask<P>(getPlatform(), &P::getPlatformDir); }
std::string Helper::getDeviceName() const { return ask<P>(getPlatform(), &P::getDeviceName); }
std::string Helper::getSoftwarePlatformFile() const { return ask<P>(getPlatform(), &P::getSoftwarePlatformFile); }
void Helper::getTargetCategories(StringVector& out) const { fill<P>(getPlatform(), &P::getTargetCategories, out); }

bool Helper::isUnifiedPlatform() const { return ask<P>(getPlatform(), &P::isUnified); }
bool Helper::isExpandablePlatform() const { return ask<P>(getPlatform(), &P::isExpandable); }
bool Helper::isFixedPlatform() const { return ask<P>(getPlatform(), &P::isFixed); }
bool Helper::isPartialPlatform() const { return ask<P>(getPlatform(), &P::isPartial); }
bool Helper::hasSimContent() const { return ask<P>(getPlatform(), &P::hasSimContent); }
bool Helper::isProcessorGroupRelevant() const { return ask<P>(getPlatform(), &P::getDesignIntentEmbedded); }

bool Helper::hasBootImg() const {
    if (!isUnifiedPlatform()) return isProcessorGroupRelevant();
    const auto* const hardware = dynamic_cast<const HPLPlatform*>(hardware_());
    return hardware && hardware->getHostInterfaceAsEnum() == HostInterfaceType::axi;
}

std::string Helper::getDefaultSystemConfig() const {
    return ask<C>(ask<S>(software_(), &S::getDefaultSystemConfig), &C::getName);
}
std::string Helper::getSystemConfigByName(const std::string& config) const {
    return ask<C>(ask<S>(software_(), &S::getSystemConfigByName, config), &C::getName);
}
void Helper::getSysConfigNames(StringVector& out) const {
    HSTVector<HTEQSystemConfig*> configs;
    fill<S>(software_(), &S::getSystemConfigs, configs);
    for (const HTEQSystemConfig* config : configs) out.push_back(config->getName());
}
bool Helper::isSystemConfigSupported(const std::string& config) const {
    return ask<S>(software_(), &S::isSystemConfigSupported, config);
}
bool Helper::isRuntimeSupported(const std::string& runtime) const {
    return ask<S>(software_(), &S::isRuntimeSupported, runtime);
}
bool Helper::isQemuSupported(const std::string& config) const {
    return ask<C>(ask<S>(software_(), &S::getSystemConfigByName, config), &C::isQemuSupported);
}
void Helper::getIncludePaths(const std::string& config, StringVector& out) const {
    addOfGroups(ask<S>(software_(), &S::getSystemConfigByName, config), &HTEQProcessorGroup::getIncludePaths, out);
}
void Helper::getLibraryPaths(const std::string& config, StringVector& out) const {
    addOfGroups(ask<S>(software_(), &S::getSystemConfigByName, config), &HTEQProcessorGroup::getLibraryPaths, out);
}
void Helper::getRuntimes(const std::string& config, StringVector& out) const {
    if (isValid()) repository::addRuntimes(*getPlatform(), config, repository::RuntimeNames::plain, out);
}
void Helper::getRuntimesByPrettyName(const std::string& config, StringVector& out) const {
    if (isValid()) repository::addRuntimes(*getPlatform(), config, repository::RuntimeNames::pretty, out);
}
std::size_t Helper::getNumRuntimes(const std::string& config) const {
    StringVector runtimes;
    getRuntimesByPrettyName(config, runtimes);
    return runtimes.size();
}

std::string Helper::getFpgaPart() const {
    return ask<HTEQDevice>(repository::deviceOf(getPlatform()), &HTEQDevice::getPartName);
}
StringVector Helper::getFpgaPartAsFields() const {
    return repository::partFieldsOf(repository::deviceOf(getPlatform()));
}
std::string Helper::getFpgaDevice() const { return ask<H>(hardware_(), &H::getFpgaDevice); }
int Helper::getBRAMCount() const { return ask<H>(hardware_(), &H::getBRAMCount); }
int Helper::getDSPCount() const { return ask<H>(hardware_(), &H::getDSPCount); }
int Helper::getFFCount() const { return ask<H>(hardware_(), &H::getFFCount); }
int Helper::getLUTCount() const { return ask<H>(hardware_(), &H::getLUTCount); }
unsigned Helper::getNumDDRs() const { return ask<H>(hardware_(), &H::getNumDDRs); }
unsigned Helper::getNumComputeUnits() const { return ask<H>(hardware_(), &H::getNumComputeUnits); }
void Helper::getAllResources(StringVector& out) const {
    StringVector types, counts;
    getAllResources(types, counts);
    addPairs(types, counts, out);
}
void Helper::getAllResources(StringVector& types, StringVector& counts) const {
    fill<H>(hardware_(), &H::getAllResources, types, counts);
}

std::string Helper::getMemType() const { return ask<H>(hardware_(), &H::getMemType); }
std::string Helper::getMemSize() const { return ask<H>(hardware_(), &H::getMemSize); }
bool Helper::isMemoryResourceIndexed() const { return ask<H>(hardware_(), &H::isMemoryResourceIndexed); }
unsigned Helper::getUniqueMemoryTypeCount() const { return ask<H>(hardware_(), &H::getUniqueMemoryTypeCount); }
unsigned Helper::getUniqueMemoryTypeStrings(StringVector& out) const {
    const H* const hardware = hardware_();
    return hardware ? hardware->getUniqueMemoryTypeStrings(out) : 0;
}
unsigned Helper::getMemoryTypeCount(const std::string& type) const {
    return ask<H>(hardware_(), &H::getMemoryTypeCount, type);
}
unsigned Helper::getMemoryIndex(const std::string& type, unsigned n) const {
    return ask<H>(hardware_(), &H::getMemoryIndex, type, n);
}
std::string Helper::getMemorySize(const std::string& type, unsigned n) const {
    return ask<H>(hardware_(), &H::getMemorySize, type, n);
}
std::string Helper::getMemorySLR(const std::string& type, unsigned n) const {
    return ask<H>(hardware_(), &H::getMemorySLR, type, n);
}
void Helper::getValidSLRNames(StringVector& out) const { fill<H>(hardware_(), &H::getValidSLRNames, out); }
std::string Helper::getDefaultClockFrequency() const { return ask<H>(hardware_(), &H::getDefaultClockFrequency); }
std::string Helper::getDefaultClockId() const { return ask<H>(hardware_(), &H::getDefaultClockId); }
std::string Helper::getClockFrequency(const std::string& name) const {
    return ask<H>(hardware_(), &H::getClockFrequency, name);
}
std::string Helper::getClockId(const std::string& name) const { return ask<H>(hardware_(), &H::getClockId, name); }
std::string Helper::getPlatformFrequency(int index) const {
    return ask<H>(hardware_(), &H::getPlatformFrequency, index);
}
void Helper::getAllClockFrequencies(StringVector& out) const {
    StringVector names, frequencies;
    getAllClockFrequencies(names, frequencies);
    addPairs(names, frequencies, out);
}
void Helper::getAllClockFrequencies(StringVector& names, StringVector& frequencies) const {
    fill<H>(hardware_(), &H::getAllClockFrequencies, names, frequencies);
}
void Helper::getCpuClockNames(StringVector& out) const { fill<H>(hardware_(), &H::getCpuClockNames, out); }
void Helper::getSystemClockNames(StringVector& out) const { fill<H>(hardware_(), &H::getSystemClockNames, out); }

std::string Helper::getHostArch() const { return ask<H>(hardware_(), &H::getHostArch); }
std::string Helper::getInterfaceDesc() const { return ask<H>(hardware_(), &H::getInterfaceDesc); }
std::string Helper::getBoardId() const { return ask<H>(hardware_(), &H::getBoardId); }
std::string Helper::getPlatformBoardRepo() const { return ask<H>(hardware_(), &H::getBoardRepo); }
void Helper::getBoardImgZipEntries(StringVector& out) const { fill<H>(hardware_(), &H::getBoardImgZipEntries, out); }
std::string Helper::getBoardConnectionsString() const { return ask<H>(hardware_(), &H::getBoardConnectionsString); }
std::string Helper::getLockedBoardConnectionsString() const {
    return ask<H>(hardware_(), &H::getLockedBoardConnectionsString);
}
std::string Helper::getUnlockedBoardConnectionsString() const {
    return ask<H>(hardware_(), &H::getUnlockedBoardConnectionsString);
}
bool Helper::hasDimmConnectors() const { return ask<H>(hardware_(), &H::hasDimmConnectors); }
void Helper::getDimmConnectors(StringVector& out) const { fill<H>(hardware_(), &H::getDimmConnectors, out); }
void Helper::getConnectedDimmConnectors(StringVector& out) const {
    StringVector connectedNames;
    getConnectedDimmConnectors(out, connectedNames);
}
void Helper::getConnectedDimmConnectors(StringVector& names, StringVector& connectedNames) const {
    fill<H>(hardware_(), &H::getConnectedDimmConnectors, names, connectedNames);
}
void Helper::getLockedDimmConnectors(StringVector& out) const {
    fill<H>(hardware_(), &H::getLockedDimmConnectors, out);
}
std::string Helper::getConnectorDisplayName(const std::string& name) const {
    return ask<H>(hardware_(), &H::getConnectorDisplayName, name);
}

const HBOBoard* Helper::getBaseBoard_() const {
    const H* const hardware = hardware_();
    return hardware && boards_ ? boards_->getBoard(hardware->getBoardPart()) : nullptr;
}

const HBOBoardComponent* Helper::getConnector_(const std::string& name) const {
    HSTVector<const HBOBoardComponent*> connectors;
    if (const HBOBoard* board = getBaseBoard_()) board->getConnectorsList(connectors);
    for (const HBOBoardComponent* connector : connectors)
        if (connector->isDIMMConnector() && (HSTStringUtils::iequals(connector->getDisplayName(), name) ||
                                             HSTStringUtils::iequals(connector->getName(), name)))
            return connector;
    return nullptr;
}

void Helper::getCompatibleConnectors(const std::string& name, StringVector& out) {
    if (!isValid() || !boards_) return;
    struct Restore {
        Helper& helper;
        const StringVector paths = helper.boardRepoPaths_;
        ~Restore() { helper.setBoardRepoPaths(paths); }
    };
    const Restore restore{*this};
    StringVector paths = boardRepoPaths_;
    paths.push_back(getPlatformBoardRepo());
    setBoardRepoPaths(paths);
    const HBOBoard* const board = getBaseBoard_();
    const HBOBoardComponent* const connector = getConnector_(name);
    if (!board || !connector) return;
    HSTVector<const HBOBoardComponent*> compatible;
    board->getCompatibleConnectorsList(*connector, compatible);
    for (const HBOBoardComponent* one : compatible)
        if (one->isDIMMConnector()) out.push_back(one->getName());
}

void Helper::setBoardRepoPaths(const StringVector& paths) {
    boardRepoPaths_ = paths;
    if (boards_) boards_->setBoardPartRepoPaths(paths);
}
