#include "platform/HTEQPlatformUtils.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <tuple>
#include <unordered_set>

#include "platform/HTEQDevice.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformMgr.h"
#include "repository/PlatformAnswers.h"
#include "repository/SearchPath.h"
#include "text/FirstPieces.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"

using repository::addOnce;
using repository::deviceOf;
using repository::hardwareOf;
using Platforms = HTEQPlatformUtils::Platforms;
using Strings = HTEQPlatformUtils::Strings;

namespace {

Platforms activePlatforms() {
    Platforms platforms;
    HTEQPlatformMgr::getGlobal()->getPlatforms(platforms);
    return platforms;
}

/// The answer for the platform of that name; false without one.
template <class Question>
bool ask(const std::string& name, const Question& question) {
    const HTEQPlatform* const platform = HTEQPlatformUtils::getPlatform(name);
    return platform && std::invoke(question, *platform);
}

bool hasUniqueName(const HTEQPlatform& platform, const std::string& name) {
    return platform.getUniqueName() == name || HSTStringUtils::iequals(platform.getPlatformBaseName(), name) ||
           HSTStringUtils::iequals(platform.getPlatformFile(), name);
}

template <class Pred>
HTEQPlatform* first(const Pred& pred) {
    const Platforms all = activePlatforms();
    const auto found = std::find_if(all.begin(), all.end(), pred);
    return found == all.end() ? nullptr : *found;
}

template <class Pred>
void addIf(const Pred& pred, Platforms& out) {
    const Platforms all = activePlatforms();
    std::copy_if(all.begin(), all.end(), std::back_inserter(out), pred);
}

/// An empty text asks for nothing.
bool fits(const std::string& asked, const std::string& value) { return asked.empty() || asked == value; }

struct Version {
    std::tuple<std::string, std::string, std::string> of;  ///< vendor, board, name
    std::pair<long long, long long> number;                ///< major, minor
};

Version versionOf(const HTEQHardwarePlatform& hardware) {
    const auto pieces = text::firstPieces(hardware.getVersion(), '.', 3);
    return {{hardware.getVendor(), hardware.getBoardId(), hardware.getName()},
            {HSTStringUtils::toNumber(pieces[0]), pieces.size() > 1 ? HSTStringUtils::toNumber(pieces[1]) : 0}};
}

/// The highest version of each vendor, board and name.
std::map<decltype(Version::of), decltype(Version::number)> latestOf(const Platforms& list) {
    std::map<decltype(Version::of), decltype(Version::number)> latest;
    for (const HTEQPlatform* platform : list)
        if (const HTEQHardwarePlatform* hardware = hardwareOf(platform)) {
            const Version version = versionOf(*hardware);
            auto& highest = latest.emplace(version.of, version.number).first->second;
            highest = std::max(highest, version.number);
        }
    return latest;
}

/// Platforms of a part that `intends` accepts, with this vendor and board.
void addOfPart(const std::string& part, const std::string& vendor, const std::string& board, bool latestOnly,
               const std::function<bool(const HTEQPlatform&)>& intends, Platforms& out) {
    Platforms ofPart;
    HTEQPlatformUtils::getPlatformsByPart(part, ofPart);
    for (HTEQPlatform* platform : ofPart) {
        const HTEQHardwarePlatform& hardware = *hardwareOf(platform);
        if (intends(*platform) && fits(vendor, hardware.getVendor()) && fits(board, hardware.getBoardId()))
            out.push_back(platform);
    }
    if (latestOnly) HTEQPlatformUtils::filterOutOldPlatforms(out);
}

constexpr std::pair<unsigned, bool (HTEQPlatform::*)() const> kIntents[] = {
    {1, &HTEQPlatform::getDesignIntentServerManaged},
    {2, &HTEQPlatform::getDesignIntentExternalHost},
    {4, &HTEQPlatform::getDesignIntentEmbedded},
    {8, &HTEQPlatform::getDesignIntentDataCenter},
};

bool isBelow(const Strings& roots, const std::string& dir) {
    return std::any_of(roots.begin(), roots.end(), [&](const std::string& root) { return dir.starts_with(root); });
}

Strings rootInstallDirs() {
    Strings roots;
    HTEQPlatformUtils::getRootInstallPlatformDirs(roots);
    return roots;
}

/// Appends the directories of the platforms that `pred` accepts and that are install directories, or are not.
template <class Pred>
void addDirs(bool ofInstall, const Pred& pred, Strings& out) {
    const Strings roots = rootInstallDirs();
    std::unordered_set<std::string> known(out.begin(), out.end());
    for (const HTEQPlatform* platform : activePlatforms())
        if (const std::string dir = platform->getPlatformDir();
            isBelow(roots, dir) == ofInstall && pred(*platform) && known.insert(dir).second)
            out.push_back(dir);
}

constexpr auto kAny = [](const HTEQPlatform&) { return true; };

constexpr std::pair<const char*, const char*> kLibraryTypes[] = {
    {"c-callable", "C-Callable Library"}, {"shared", "Shared Library"}, {"static", "Static Library"}};

void addRuntimes(const std::string& name, const std::string& systemConfig, repository::RuntimeNames names,
                 Strings& out) {
    if (const HTEQPlatform* platform = HTEQPlatformUtils::getPlatform(name))
        repository::addRuntimes(*platform, systemConfig, names, out);
}

}  // namespace

bool HTEQPlatformUtils::isDUVPlatform(const std::string& name) { return ask(name, repository::isDataCenterLike); }
bool HTEQPlatformUtils::isWELPlatform(const std::string& name) {
    return ask(name, &HTEQPlatform::getDesignIntentEmbedded);
}
bool HTEQPlatformUtils::isUnifiedPlatform(const std::string& name) { return ask(name, &HTEQPlatform::isUnified); }
bool HTEQPlatformUtils::isExpandablePlatform(const std::string& name) {
    return ask(name, &HTEQPlatform::isExpandable);
}
bool HTEQPlatformUtils::isUserPlatform(const std::string& name) {
    return ask(name, [](const HTEQPlatform& platform) { return !isInstallPlatformDir(platform.getPlatformDir()); });
}

HTEQDevice* HTEQPlatformUtils::getDevice(const std::string& name) { return deviceOf(getPlatform(name)); }

std::string HTEQPlatformUtils::getFpgaPart(const std::string& name) {
    const HTEQDevice* const device = getDevice(name);
    return device ? device->getPartName() : "";
}

Strings HTEQPlatformUtils::getFpgaPartAsFields(const std::string& name) {
    return repository::partFieldsOf(getDevice(name));
}

HTEQPlatform* HTEQPlatformUtils::getPlatform(const std::string& name) {
    return HTEQPlatformMgr::getGlobal()->getPlatform(name);
}

HTEQPlatform* HTEQPlatformUtils::getPlatformByZdfFileBaseName(const std::string& name) {
    return first([&](const HTEQPlatform* platform) { return platform->getPlatformBaseName() == name; });
}

HTEQPlatform* HTEQPlatformUtils::getPlatformByUniqueName(const std::string& name) {
    return first([&](const HTEQPlatform* platform) { return hasUniqueName(*platform, name); });
}

void HTEQPlatformUtils::getPlatformsByUniqueName(const std::string& name, Platforms& out) {
    addIf([&](const HTEQPlatform* platform) { return hasUniqueName(*platform, name); }, out);
}

HTEQPlatform* HTEQPlatformUtils::getPlatformByFilePath(const std::string& path) {
    const std::string canonical = HUTFile::getCanonicalName(path);
    const bool isDebugging = HUTEnv::get("GET_PLATFORM_BY_PATH_DEBUG_VAR").has_value();
    const auto print = [&](const char* what, const std::string& name, const char* end) {
        if (isDebugging) std::cout << what << HSTStringUtils::printable(name) << end << '\n';
    };
    print("sZdfFileCanonical is: ", canonical, "");
    HTEQPlatformMgr& manager = *HTEQPlatformMgr::getGlobal();
    return first([&](const HTEQPlatform* platform) {
        if (platform->getPlatformFile().empty()) return false;
        const std::string& candidate = manager.canonicalFileOf(*platform);
        const bool isMatch = candidate == canonical;
        print("sPlatFileCanonical is: ", candidate, isMatch ? " Found a match" : " Does not match");
        return isMatch;
    });
}

void HTEQPlatformUtils::getPlatformsByVBNV(const std::string& vendor, const std::string& board,
                                           const std::string& name, const std::string& version, Platforms& out) {
    addIf(
        [&](const HTEQPlatform* platform) {
            const HTEQHardwarePlatform* const hardware = hardwareOf(platform);
            return hardware && fits(vendor, hardware->getVendor()) && fits(board, hardware->getBoardId()) &&
                   fits(name, hardware->getName()) && fits(version, hardware->getVersion());
        },
        out);
}

void HTEQPlatformUtils::getLatestPlatformsByVBNV(const std::string& vendor, const std::string& board,
                                                 const std::string& name, const std::string& version,
                                                 Platforms& out) {
    getPlatformsByVBNV(vendor, board, name, version, out);
    filterOutOldPlatforms(out);
}

void HTEQPlatformUtils::getPlatformsByPart(const std::string& part, Platforms& out) {
    addIf(
        [&](const HTEQPlatform* platform) {
            const HTEQDevice* const device = deviceOf(platform);
            return device && device->getPartArch() == part;
        },
        out);
}

void HTEQPlatformUtils::getPlatformsByCategoryFamilyVendorAndBoard(const std::string& category,
                                                                   const std::string& part, const std::string& vendor,
                                                                   const std::string& board, bool latestOnly,
                                                                   Platforms& out) {
    const auto intends = [&](const HTEQPlatform& platform) {
        if (category == "fennick") return repository::isDataCenterLike(platform);
        return category != "lorimar" || platform.getDesignIntentEmbedded();
    };
    addOfPart(part, vendor, board, latestOnly, intends, out);
}

void HTEQPlatformUtils::getPlatformsByDesignIntent(unsigned intent, const std::string& part,
                                                   const std::string& vendor, const std::string& board,
                                                   bool latestOnly, Platforms& out) {
    const auto intends = [&](const HTEQPlatform& platform) {
        return std::all_of(std::begin(kIntents), std::end(kIntents),
                           [&](const auto& row) { return (intent & row.first) == 0 || (platform.*row.second)(); });
    };
    addOfPart(part, vendor, board, latestOnly, intends, out);
}

void HTEQPlatformUtils::getBoardsByCategoryFamilyAndVendor(const std::string& /*category*/, const std::string& part,
                                                           const std::string& vendor, Strings& out) {
    Platforms ofPart;
    getPlatformsByPart(part, ofPart);
    for (const HTEQPlatform* platform : ofPart)
        if (platform->getVendor() == vendor) addOnce(hardwareOf(platform)->getBoardId(), out);
}

void HTEQPlatformUtils::getBoardsByPartAndVendor(const std::string& part, const std::string& vendor, Strings& out) {
    getBoardsByCategoryFamilyAndVendor("", part, vendor, out);
}

void HTEQPlatformUtils::getSupportedFpgaParts(Strings& out) {
    for (const HTEQPlatform* platform : activePlatforms())
        if (const HTEQDevice* device = deviceOf(platform)) addOnce(device->getPartArch(), out);
}

void HTEQPlatformUtils::getRootInstallPlatformDirs(Strings& out) {
    for (const std::string& root : HUTEnv::getKELAppRootList())
        out.push_back(repository::repositoryBelow(HUTFile::getCanonicalName(root)));
    out.push_back(repository::systemRepository());
}

bool HTEQPlatformUtils::isInstallPlatformDir(const std::string& dir) { return isBelow(rootInstallDirs(), dir); }

void HTEQPlatformUtils::getAllFactoryPlatformDirs(Strings& out) { addDirs(true, kAny, out); }
void HTEQPlatformUtils::getAllUserPlatformDirs(Strings& out) { addDirs(false, kAny, out); }
void HTEQPlatformUtils::getUnifiedPlatformDirs(Strings& out) {
    addDirs(
        true, [](const HTEQPlatform& platform) { return platform.isUnified(); }, out);
}

std::string HTEQPlatformUtils::setUserPlatformDirs(const Strings& dirs) {
    HTEQPlatformMgr* const manager = HTEQPlatformMgr::getGlobal();
    if (!manager) return "Failed to get Platform Mgr";
    Strings old, errors;
    getAllUserPlatformDirs(old);
    manager->removePlatformsFromDirs(old);
    manager->clearParsingErrorMsgs();
    const std::size_t before = manager->getNumPlatforms();
    manager->addPlatformsFromDirs(dirs);
    manager->getParsingErrorMsgs(errors);
    return (manager->getNumPlatforms() == before ? "No Platforms Found.\n\n" : "") + HSTStringUtils::join(errors, "");
}

Strings HTEQPlatformUtils::splitToFullDirs(const std::string& path) {
    Strings dirs;
    repository::splitToFullDirs(path, dirs);
    return dirs;
}

std::string HTEQPlatformUtils::getPrettyNameForProductType(const std::string& type) {
    return type == "fennick" ? "Fennick" : type == "lorimar" ? "Lorimar" : "Teq";
}

std::string HTEQPlatformUtils::getPrettyNameForLibType(const std::string& type) {
    for (const auto& [name, pretty] : kLibraryTypes)
        if (type == name) return pretty;
    return "";
}

void HTEQPlatformUtils::getAllLibraryTypes(Strings& out) {
    for (const auto& row : kLibraryTypes) out.push_back(row.first);
}

void HTEQPlatformUtils::getRuntimes(const std::string& name, const std::string& systemConfig, Strings& out) {
    addRuntimes(name, systemConfig, repository::RuntimeNames::plain, out);
}

void HTEQPlatformUtils::getRuntimesByPrettyName(const std::string& name, const std::string& systemConfig,
                                                Strings& out) {
    addRuntimes(name, systemConfig, repository::RuntimeNames::pretty, out);
}

std::size_t HTEQPlatformUtils::getNumRuntimes(const std::string& name, const std::string& systemConfig) {
    Strings runtimes;
    getRuntimesByPrettyName(name, systemConfig, runtimes);
    return runtimes.size();
}

bool HTEQPlatformUtils::supportsMultipleRuntimes(const std::string& name) { return getNumRuntimes(name, "") >= 1; }

bool HTEQPlatformUtils::isLatestVersion(const HTEQPlatform* platform) {
    return isLatestVersion(platform, activePlatforms());
}

bool HTEQPlatformUtils::isLatestVersion(const HTEQPlatform* platform, const Platforms& list) {
    const HTEQHardwarePlatform* const hardware = hardwareOf(platform);
    if (!hardware) return platform != nullptr;
    const Version version = versionOf(*hardware);
    return std::none_of(list.begin(), list.end(), [&](const HTEQPlatform* other) {
        const HTEQHardwarePlatform* const compared = hardwareOf(other);
        if (!compared) return false;
        const Version its = versionOf(*compared);
        return its.of == version.of && its.number > version.number;
    });
}

void HTEQPlatformUtils::filterOutOldPlatforms(Platforms& list) {
    const auto latest = latestOf(list);
    std::erase_if(list, [&](const HTEQPlatform* platform) {
        const HTEQHardwarePlatform* const hardware = hardwareOf(platform);
        if (!hardware) return platform == nullptr;
        const Version version = versionOf(*hardware);
        return latest.at(version.of) > version.number;
    });
}
