#include "platform/HTEQPlatformMgr.h"

#include <algorithm>

#include "board/HBOBoardCDataManager.h"
#include "msg/ComMsgMgr.h"
#include "msg/SharedBudget.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwarePlatformMgr.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformXMLReader.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSoftwarePlatformXMLReader.h"
#include "repository/DirectoryWalk.h"
#include "repository/HardwareFiles.h"
#include "repository/SearchPath.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "zip/Request.h"

namespace {

constexpr char kUnable[] = ". Unable to load platform.\n";
constexpr char kNotOnDisk[] = " does not exist on disk. Unable to load platform.\n";

std::unique_ptr<HTEQPlatform> createPlatform_(std::unique_ptr<HTEQHardwarePlatform> hardware) {
    auto platform = std::make_unique<HTEQPlatform>();
    platform->setPartial(true);
    platform->setPlatformFile(hardware->getPlatformFile());
    platform->setHardwarePlatform(hardware.release());
    return platform;
}

}  // namespace

HTEQPlatformMgr* HTEQPlatformMgr::mp_theGlobal = nullptr;

HTEQPlatformMgr::HTEQPlatformMgr() : boards_(std::make_unique<HBOBoardCDataManager>()) {}
HTEQPlatformMgr::~HTEQPlatformMgr() = default;

HTEQPlatformMgr* HTEQPlatformMgr::getGlobal() {
    if (!mp_theGlobal) getGlobalNoInit()->init_();
    return mp_theGlobal;
}

HTEQPlatformMgr* HTEQPlatformMgr::getGlobalNoInit() {
    if (!mp_theGlobal) mp_theGlobal = new HTEQPlatformMgr;
    return mp_theGlobal;
}

void HTEQPlatformMgr::init_() {
    HSTVector<std::string> dirs;
    getDefaultTeqPlatformDirs(dirs);
    if (!dirs.empty()) addPlatformsFromDirs(dirs);
}

void HTEQPlatformMgr::getDefaultTeqPlatformDirs(HSTVector<std::string>& out) const {
    const auto addIfExists = [&out](const std::string& dir) {
        if (HUTFile::exists(dir)) out.push_back(dir);
    };
    for (const std::string& root : HUTEnv::getKELAppRootList()) addIfExists(repository::repositoryBelow(root));
    addIfExists(repository::systemRepository());
}

void HTEQPlatformMgr::addPlatformsFromDirs(const HSTVector<std::string>& dirs) { addPlatformsFromDirs("", dirs); }

void HTEQPlatformMgr::addPlatformsFromDirs(const std::string& name, const HSTVector<std::string>& dirs) {
    const SharedBudget shared;
    addPlatformsFromDirs_(name, dirs);
    addHardwarePlatformsFromDirs_(dirs);
}

std::unordered_set<std::string> HTEQPlatformMgr::existingFiles_() const {
    std::unordered_set<std::string> files;
    for (const auto* list : {&teqPlatforms_, &cfaPlatforms_})
        for (const HTEQPlatform* platform : *list) files.insert(platform->getPlatformFile());
    return files;
}

void HTEQPlatformMgr::addPlatformsFromDirs_(const std::string& name, const HSTVector<std::string>& dirs) {
    std::unordered_set<std::string> existing = existingFiles_();
    const auto add = [&](const repository::Entry& entry) {
        std::string path = entry.descriptorPath();
        if (path.empty() || existing.contains(path)) return;
        if (!name.empty() && !HSTStringUtils::iequals(entry.stem(), name)) return;
        if (addPlatform_(path)) existing.insert(std::move(path));
    };
    for (const std::string& dir : dirs) {
        if (!HUTFile::isDir(dir)) continue;
        bool failed = false;
        repository::walk(dir, repository::kDescriptorRules,
                         {.file = add, .failed = [&](const std::string&, const std::exception&) { failed = true; }});
        if (failed) ComMsgMgr::sendMsg("@74-5@%s", dir);
    }
}

bool HTEQPlatformMgr::addPlatform_(const std::string& path) {
    const zip::Request request;
    auto platform = std::make_unique<HTEQPlatform>();
    platform->setZdf(true);
    HTEQPlatformXMLReader reader(path, platform.get());
    if (!reader.parseFile()) {
        if (!reader.getErrorMsg().empty()) errors_.push_back(reader.getErrorMsg());
        ComMsgMgr::sendMsg("@74-3@%s", path);
        errors_.push_back("Encountered Errors while parsing platform: " + path + kUnable);
        return false;
    }
    if (!attachHardwarePlatforms_(*platform) || !attachSoftwarePlatforms_(*platform)) return false;
    teqPlatforms_.takeFirst(std::move(platform));
    return true;
}

bool HTEQPlatformMgr::attachHardwarePlatforms_(HTEQPlatform& platform) {
    if (!platform.hasReconfigurablePartitions()) return attachSingleHardwarePlatform_(platform);
    bool succeeded = true;
    for (HTEQReconfigurablePartition* partition : platform.getReconfigurablePartitions())
        succeeded &= attachReconfigurablePartition_(platform, *partition);
    return succeeded;
}

std::unique_ptr<HPLPlatform> HTEQPlatformMgr::hardwareFor_(const std::string& file, const std::string& platform) {
    if (!HUTFile::exists(file))
        handleInvalidPath_(file, platform);
    else if (!HTEQHardwarePlatform::isValidPlatformExt("." + HUTFile::getExt(file)))
        handleInvalidExtension_(file, platform);
    else
        return repository::parseCFAFile(file);
    return nullptr;
}

bool HTEQPlatformMgr::attachSingleHardwarePlatform_(HTEQPlatform& platform) {
    auto hardware = hardwareFor_(platform.getHardwarePlatformFile(), platform.getPlatformFile());
    if (!hardware) return false;
    platform.setHardwarePlatform(hardware.release());
    return true;
}

bool HTEQPlatformMgr::attachReconfigurablePartition_(HTEQPlatform& platform, HTEQReconfigurablePartition& partition) {
    auto hardware = hardwareFor_(partition.getHardwarePlatformFile(), platform.getPlatformFile());
    if (!hardware) return false;
    partition.setHardwarePlatform(hardware.release());
    if (partition.getID() == platform.getDefaultRPId())
        platform.setDefaultRPHardwarePlatform(partition.getHardwarePlatform());
    return true;
}

void HTEQPlatformMgr::handleInvalidPath_(const std::string& file, const std::string& platform) {
    ComMsgMgr::sendMsg("@74-14@%s%s", file, platform);
    errors_.push_back("Hardware platform file " + file + " for platform " + platform + kNotOnDisk);
}

void HTEQPlatformMgr::handleInvalidExtension_(const std::string& file, const std::string& platform) {
    std::string extensions;
    for (const std::string& extension : HTEQHardwarePlatform::getValidPlatformExts()) extensions += " " + extension;
    ComMsgMgr::sendMsg("@74-55@%s%s%s", file, platform, extensions);
    errors_.push_back("Found bad hardware platform file " + file + " for platform " + platform +
                      ". Supported extensions are" + extensions + kUnable);
}

bool HTEQPlatformMgr::attachSoftwarePlatforms_(HTEQPlatform& platform) {
    const std::string& file = platform.getSoftwarePlatformFile();
    if (!HUTFile::exists(file)) {
        errors_.push_back("Software platform file " + file + " for platform " + platform.getPlatformFile() +
                          kNotOnDisk);
        return false;
    }
    auto* const software = new HTEQSoftwarePlatform;
    platform.addSoftwarePlatform(software);
    HTEQSoftwarePlatformXMLReader reader(file, software);
    if (reader.parseFile()) return true;
    ComMsgMgr::sendMsg("@74-4@%s", platform.getPlatformFile());
    errors_.push_back(reader.getErrorMsg());
    errors_.push_back("Encountered Errors while parsing software platform for: " + platform.getPlatformFile() +
                      kUnable);
    return false;
}

void HTEQPlatformMgr::addHardwarePlatformsFromDirs_(const HSTVector<std::string>& dirs) {
    HSTVector<HTEQHardwarePlatform*> list;
    getHardwarePlatformsFromDirs(dirs, list, false);
    HSTVector<std::unique_ptr<HTEQHardwarePlatform>> found(list.begin(), list.end());
    const std::unordered_set<std::string> existing = existingFiles_();
    for (auto& hardware : found)
        if (!existing.contains(hardware->getPlatformFile())) cfaPlatforms_.take(createPlatform_(std::move(hardware)));
}

void HTEQPlatformMgr::getHardwarePlatformsFromDirs(const HSTVector<std::string>& dirs,
                                                   HSTVector<HTEQHardwarePlatform*>& out, bool flag) {
    HTEQHardwarePlatformMgr::addPlatformsFromDirs(dirs, out, flag);
}

void HTEQPlatformMgr::removePlatformsFromDirs(const HSTVector<std::string>& dirs) {
    removePlatformsFromDirs_(dirs, teqPlatforms_);
    removePlatformsFromDirs_(dirs, cfaPlatforms_);
}

void HTEQPlatformMgr::removePlatformsFromDirs_(const HSTVector<std::string>& dirs, Owned<HTEQPlatform>& list) {
    const std::unordered_set<std::string> removed(dirs.begin(), dirs.end());
    list.removeAll([&](const HTEQPlatform& platform) {
        const bool goes = removed.contains(HUTFile::getParent(platform.getPlatformFile()));
        if (goes) canonical_.erase(&platform);
        return goes;
    });
}

void HTEQPlatformMgr::clearAllPlatforms() {
    teqPlatforms_.clear();
    cfaPlatforms_.clear();
    canonical_.clear();
}

HTEQPlatform* HTEQPlatformMgr::getPlatform(const std::string& name) {
    const std::string canonical = HUTFile::getCanonicalName(name);
    return active_->first([&](const HTEQPlatform& platform) {
        return platform.getUniqueName() == name || HSTStringUtils::iequals(platform.getPlatformBaseName(), name) ||
               canonicalFileOf(platform) == canonical;
    });
}

const std::string& HTEQPlatformMgr::canonicalFileOf(const HTEQPlatform& platform) {
    Canonical& known = canonical_[&platform];
    if (known.file != platform.getPlatformFile())
        known = {platform.getPlatformFile(), HUTFile::getCanonicalName(platform.getPlatformFile())};
    return known.name;
}

void HTEQPlatformMgr::getPlatforms(HSTVector<HTEQPlatform*>& out) const {
    out.insert(out.end(), active_->begin(), active_->end());
}

void HTEQPlatformMgr::getCFAPlatforms(HSTVector<HTEQPlatform*>& out) const { out = cfaPlatforms_.items(); }

void HTEQPlatformMgr::getUnifiedPlatforms(HSTVector<HTEQPlatform*>& out) const {
    std::copy_if(active_->begin(), active_->end(), std::back_inserter(out),
                 [](const HTEQPlatform* platform) { return platform->isUnified(); });
}

void HTEQPlatformMgr::setProjectType(TEQProjectType type) {
    type_ = type;
    if (type == TEQProjectType::teq) active_ = &teqPlatforms_;
    if (type == TEQProjectType::platform) active_ = &cfaPlatforms_;
}

std::string HTEQPlatformMgr::getProjectTypeAsStr() const {
    if (type_ == TEQProjectType::teq) return "teq";
    return type_ == TEQProjectType::platform ? "platform" : "";
}

void HTEQPlatformMgr::setBoardRepoPaths(const HSTVector<std::string>& paths) {
    boardRepoPaths_ = paths;
    boards_->setBoardPartRepoPaths(paths);
}
