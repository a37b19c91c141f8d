#include "platform/HTEQHardwarePlatformMgr.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "loading/ArchiveRoad.h"
#include "msg/HEXAll.h"
#include "msg/SharedBudget.h"
#include "platform/HPLPlatform.h"
#include "repository/DirectoryWalk.h"
#include "repository/HardwareFiles.h"
#include "util/HUTFile.h"
#include "zip/Request.h"

using loading::Route;
using Found = HSTVector<std::unique_ptr<HPLPlatform>>;

namespace {

std::unique_ptr<HPLPlatform> readBy(Route route, const std::string& file) {
    auto platform = std::make_unique<HPLPlatform>();
    try {
        loading::fillFromArchive(*platform, file, teq_platform::HwMetadataMode::Default, route);
    } catch (const HEXAll&) {
        return nullptr;
    }
    return platform;
}

/// Whether the archive belongs to the platform of a descriptor: `DIR/X/NAME.lfa` to `DIR/NAME.zdf`.
bool hasDescriptor(const repository::Entry& entry) {
    const std::string separator = HUTFile::getDirSeparator();
    return HUTFile::exists(HUTFile::getParent(entry.directory) + separator + entry.stem() + ".zdf");
}

void parseCFAFiles_(const std::string& dir, Found& parsed) {
    if (!HUTFile::exists(dir)) {
        ComMsgMgr::sendMsg("@74-1@%s", "HTEQHardwarePlatformMgr::parseCFAFiles_: '" + dir + "' doesn't exist");
        return;
    }
    bool failed = false;
    repository::walk(
        dir, repository::kArchiveRules,
        {.file =
             [&](const repository::Entry& entry) {
                 const std::string extension = "." + HUTFile::getExt(entry.name);
                 if (!entry.isRegular || !HTEQHardwarePlatform::isValidPlatformExt(extension) || hasDescriptor(entry))
                     return;
                 if (auto platform = repository::parseCFAFile(entry.path())) parsed.push_back(std::move(platform));
             },
         .failed = [&](const std::string&, const std::exception&) { failed = true; }});
    if (failed) ComMsgMgr::sendMsg("@74-5@%s", dir);
}

/// Deletes those that are not the first of their VBNV.
Found validateParsedPlatforms_(Found parsed, bool flag) {
    Found validated;
    std::unordered_map<std::string, std::string> files;
    for (auto& platform : parsed) {
        const std::string vbnv = platform->getVBNV();
        const std::string& file = platform->getPlatformFile();
        const auto [first, isNew] = files.emplace(vbnv, file);
        if (isNew)
            validated.push_back(std::move(platform));
        else if (flag)
            ComMsgMgr::sendMsg("@74-23@%s", file);
        else
            ComMsgMgr::sendMsg("@74-17@%s%s%s", vbnv, first->second, file);
    }
    return validated;
}

void addPlatforms_(Found validated, HSTVector<HTEQHardwarePlatform*>& out) {
    std::unordered_set<std::string> replaced;
    for (const auto& platform : validated) replaced.insert(platform->getUniqueName());
    std::erase_if(out, [&](const HTEQHardwarePlatform* old) { return replaced.erase(old->getUniqueName()) > 0; });
    out.reserve(out.size() + validated.size());
    for (auto& platform : validated) out.push_back(platform.release());
}

}  // namespace

std::unique_ptr<HPLPlatform> repository::parseCFAFile(const std::string& file) {
    const zip::Request request;  // the second reader finds the archive open
    auto platform = readBy(Route::jsonOnly, file);
    return platform ? std::move(platform) : readBy(Route::xmlOnly, file);
}

HPLPlatform* HTEQHardwarePlatformMgr::addPlatform(const std::string& file) {
    return repository::parseCFAFile(file).release();
}

void HTEQHardwarePlatformMgr::addPlatformsFromDirs(const HSTVector<std::string>& dirs,
                                                   HSTVector<HTEQHardwarePlatform*>& out, bool flag) {
    const SharedBudget shared;
    Found parsed;
    for (const std::string& dir : dirs)
        if (HUTFile::exists(dir)) parseCFAFiles_(dir, parsed);
    addPlatforms_(validateParsedPlatforms_(std::move(parsed), flag), out);
}
