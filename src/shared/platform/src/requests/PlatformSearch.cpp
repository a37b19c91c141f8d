#include "platform/PlatformSearch.h"

#include <fnmatch.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <unordered_map>

#include "msg/HEXAll.h"
#include "msg/SharedBudget.h"
#include "msg/Silence.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQDevice.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformUtils.h"
#include "platform/NativePlatformRepoService.h"
#include "platform/PlatformLoader.h"
#include "platform/PlatformPolicy.h"
#include "platform/PlatformRequests.h"
#include "records/TEQPlatformLMX.h"
#include "repository/DirectoryWalk.h"
#include "repository/PlatformAnswers.h"
#include "repository/SearchPath.h"
#include "text/FirstPieces.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/HUTFileUtils.h"
#include "xml/XmlReader.h"

namespace teq_platform::requests {
namespace {

using State = FoundPlatform::State;

constexpr std::array kTypes{"fennick", "lorimar", "acceleration", "undefined"};
constexpr std::pair<const char*, bool (HTEQPlatform::*)() const> kIntents[] = {
    {"server-managed", &HTEQPlatform::getDesignIntentServerManaged},
    {"external-host", &HTEQPlatform::getDesignIntentExternalHost},
    {"embedded", &HTEQPlatform::getDesignIntentEmbedded},
    {"data-center", &HTEQPlatform::getDesignIntentDataCenter},
};

/// The descriptors in a repository, sorted by path.
std::vector<std::pair<std::string, std::string>> descriptorsIn(const std::string& repository, const auto& isWanted,
                                                               HSTVector<HEXDiagnostic>& problems) {
    std::vector<std::pair<std::string, std::string>> found;  // path and name
    repository::walk(
        repository, repository::kDescriptorRules,
        {.file =
             [&](const repository::Entry& entry) {
                 std::string path = entry.descriptorPath();
                 if (path.empty()) return;
                 std::string name = entry.stem();
                 if (isWanted(name)) found.emplace_back(std::move(path), std::move(name));
             },
         .failed = [&](const std::string& path,
                       const std::exception& e) { problems.push_back({.file = path, .text = e.what()}); }});
    std::sort(found.begin(), found.end());
    return found;
}

/// A search may find many platforms, each with long texts.
std::string kept(const std::string& text) { return HSTStringUtils::cut(text, 4000); }

FoundPlatform::Hardware hardwareOf(const HTEQPlatform& platform) {
    const HTEQHardwarePlatform* const hardware = repository::hardwareOf(&platform);
    if (!hardware) return {.type = "undefined"};
    const HTEQDevice* const device = repository::deviceOf(&platform);
    FoundPlatform::Hardware known{
        .type = platform.getTypeString(),
        .part = device ? device->getPartName() : "",
        .architecture = device ? device->getPartArch() : "",
        .board = kept(hardware->getBoardId()),
        .vbnv = kept(HPLPlatform::getVBNVAsStr(hardware->getVendor(), hardware->getBoardId(), hardware->getName(),
                                               hardware->getVersion())),
        .intents = {}};
    for (const auto& [name, intends] : kIntents)
        if ((platform.*intends)()) known.intents.push_back(name);
    return known;
}

/// What the descriptor says itself. The model would also resolve the files that it names, which costs more than all
/// the rest.
void takeDescriptor(FoundPlatform& found) {
    const TEQPlatform::Platform record = xml::readFile(TEQPlatform::kDocument, found.file);
    found.vendor = record.vendor.get();
    found.library = record.library.get();
    found.descriptorName = record.name.get();
    found.version = record.version.get().text;
    found.description = record.description;
}

/// Fills `found` from its file and, for a filter, from the files that it names; the platform goes to `loaded`. False
/// if it is broken.
bool readInto(FoundPlatform& found, std::shared_ptr<HTEQPlatform>* loaded) {
    const msg::Silence silence;
    try {
        takeDescriptor(found);
        if (!loaded) return true;
        *loaded = load(found.file, HwMetadataMode::Default);
        found.hardware = hardwareOf(**loaded);
        return true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        found.state = State::broken;
        found.reason = failureOfOne(found.file).diagnostic;
        return false;
    }
}

/// A platform with a version that is not a number is reported, and hides no other.
bool isUsable(const std::shared_ptr<HTEQPlatform>& platform, HSTVector<HEXDiagnostic>& problems) {
    const msg::Silence silence;
    try {
        return warranty(platform).isSupported;
    } catch (const RequestError& e) {
        problems.push_back(e.diagnostic());
        return false;
    }
}

[[noreturn]] void wrongUse(const std::string& text) { throw RequestError(FailureKind::wrongUse, {.text = text}); }

/// The filters of a request.
class Filter {
public:
    explicit Filter(const Find& request) : request_(request), vbnv_(HSTStringUtils::split(request.vbnv, ':')) {
        if (!request.intent.empty()) intents_ = HSTStringUtils::split(request.intent, ',');
        for (const std::string& intent : intents_)
            if (std::none_of(std::begin(kIntents), std::end(kIntents),
                             [&](const auto& row) { return row.first == intent; }))
                wrongUse("unknown design intent '" + intent +
                         "'; expected server-managed, external-host, embedded or data-center");
        if (!request.type.empty() && std::none_of(kTypes.begin(), kTypes.end(), [&](const char* type) {
                return HSTStringUtils::iequals(type, request.type);
            }))
            wrongUse("unknown type '" + request.type + "'; expected fennick, lorimar, acceleration or undefined");
        if (!request.vbnv.empty() && vbnv_.size() != 4)
            wrongUse("'" + request.vbnv + "' is not of the form VENDOR:BOARD:NAME:VERSION");
    }

    bool needsHardware() const {
        return request_.latest || request_.usable ||
               !(request_.type.empty() && request_.part.empty() && request_.board.empty() && request_.vbnv.empty() &&
                 intents_.empty());
    }
    bool acceptsName(const std::string& name) const {
        const std::string& pattern = request_.name;
        if (pattern.empty()) return true;
        if (pattern.find_first_of("*?[") == std::string::npos) return HSTStringUtils::iequals(pattern, name);
        return ::fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD | FNM_NOESCAPE) == 0;
    }
    bool accepts(const FoundPlatform& found) const {
        if (!found.hardware) return true;
        const FoundPlatform::Hardware& is = *found.hardware;
        const auto same = [](const std::string& asked, const std::string& value) {
            return asked.empty() || HSTStringUtils::iequals(asked, value);
        };
        return same(request_.type, is.type) &&
               (same(request_.part, is.part) || same(request_.part, is.architecture)) &&
               (request_.board.empty() || request_.board == is.board) && acceptsVbnv(is.vbnv) &&
               std::all_of(intents_.begin(), intents_.end(), [&](const std::string& intent) {
                   return std::find(is.intents.begin(), is.intents.end(), intent) != is.intents.end();
               });
    }

private:
    bool acceptsVbnv(const std::string& vbnv) const {
        if (request_.vbnv.empty()) return true;
        const auto fields = text::firstPieces(vbnv, ':', vbnv_.size() + 1);
        return std::equal(
            vbnv_.begin(), vbnv_.end(), fields.begin(), fields.end(),
            [](const std::string& asked, const std::string& value) { return asked.empty() || asked == value; });
    }

    const Find& request_;
    const HSTVector<std::string> vbnv_;
    HSTVector<std::string> intents_;
};

/// Keeps the highest versions among the platforms.
void keepLatest(HSTVector<FoundPlatform>& found, const HSTVector<std::shared_ptr<HTEQPlatform>>& loaded) {
    HTEQPlatformUtils::Platforms latest;
    for (const auto& platform : loaded) latest.push_back(platform.get());
    HTEQPlatformUtils::filterOutOldPlatforms(latest);
    HSTVector<FoundPlatform> kept;
    for (std::size_t i = 0, k = 0; i < loaded.size(); ++i)
        if (k < latest.size() && latest[k] == loaded[i].get()) {
            kept.push_back(std::move(found[i]));
            ++k;
        }
    found = std::move(kept);
}

std::string listOf(const HSTVector<std::string>& dirs) {
    return dirs.empty() ? "none" : HSTStringUtils::join(dirs, ", ");
}

/// Whether `path` is `directory` or lies below it.
bool isWithin(const std::string& path, const std::string& directory) {
    return path.starts_with(directory) &&
           (path.size() == directory.size() || directory.ends_with('/') || path[directory.size()] == '/');
}

/// The path with all links resolved except its own name.
std::string placeOf(const std::string& path) {
    return HUTFile::getCanonicalName(HUTFile::getParent(path)) + "/" + path.substr(path.rfind('/') + 1);
}

/// What one walk says about a file.
class Judgement {
public:
    Judgement(const std::string& path, const std::string& repository)
        : place_(placeOf(path)), given_(HUTFileUtils::makeAbsolutePath(path)) {
        const std::string name = place_.substr(place_.rfind('/') + 1);
        repository::walk(repository, repository::kDescriptorRules,
                         {.file =
                              [&](const repository::Entry& entry) {
                                  if (entry.name != name || placeOf(entry.path()) != place_) return;
                                  found_ = entry.descriptorPath();
                                  if (found_.empty())
                                      take("extension", "the extension is not \".zdf\" in lower case");
                                  else
                                      stem_ = entry.stem();
                              },
                          .failed =
                              [&](const std::string& at, const std::exception& e) {
                                  if (concerns(at)) take("permission", e.what());
                              },
                          .skipped = [&](const std::string& at, repository::Skip skip) { takeSkip(at, skip); }});
        if (!rule && found_.empty() && concerns(repository)) take("missing", "there is no such file");
    }

    std::optional<WhyNot> rule;
    bool isFound() const { return !found_.empty(); }
    const std::string& found() const { return found_; }
    const std::string& stem() const { return stem_; }

private:
    bool concerns(const std::string& directory) const {
        return isWithin(place_, directory) || isWithin(given_, directory);
    }
    void take(const char* name, const std::string& text) {
        if (!rule) rule = WhyNot{.rule = name, .text = text};
    }
    void takeSkip(const std::string& at, repository::Skip skip) {
        if (!concerns(at)) return;
        switch (skip) {
            case repository::Skip::brokenLink:
                return take("broken-link", "the target of the link '" + at + "' cannot be reached");
            case repository::Skip::loop: return take("loop", "'" + at + "' leads back to a directory above it");
            case repository::Skip::tooDeep:
                return take("depth", "'" + at + "' is more than " + std::to_string(repository::kMaxLevels - 1) +
                                         " levels below the repository");
        }
    }

    const std::string place_, given_;
    std::string found_, stem_;
};

/// The verdict on a file that a walk has found, from what its name resolves to.
WhyNot verdictOn(const std::string& file, const std::string& name, const Repositories& where) {
    const Location location = locate(name, where);
    for (const FoundPlatform& other : location.others)
        if (other.file == file && other.state == State::broken)
            return {.rule = ::access(file.c_str(), R_OK) == 0 ? "not-valid" : "permission",
                    .text = other.reason.report("")};
    if (location.file != file)
        return {.rule = "duplicate", .text = "the name '" + name + "' resolves to '" + location.file + "'"};
    return {.rule = "found", .text = "the name '" + name + "' resolves to it", .isFound = true};
}

}  // namespace

HSTVector<std::string> searchPath(const Repositories& where) {
    HSTVector<std::string> dirs = where.dirs;
    if (where.withDefaults) teq::platform::NativePlatformRepoService().getDefaultPlatformLookupDirs(dirs);
    return repository::distinctDirectories(dirs);
}

FindResult find(const Find& request) {
    const Filter filter(request);
    const SharedBudget shared;
    FindResult result;
    HSTVector<std::shared_ptr<HTEQPlatform>> loaded;
    std::unordered_map<std::string, std::string> owners;  // name in lower case to file
    const auto isWanted = [&](const std::string& name) { return filter.acceptsName(name); };
    const auto emit = [&](const FoundPlatform& found) {
        if (request.found) request.found(found);
    };
    for (const std::string& repository : searchPath(request.where)) {
        if (request.progress) request.progress(repository);
        for (auto& [path, name] : descriptorsIn(repository, isWanted, result.problems)) {
            result.isNameKnown = true;
            FoundPlatform found{.name = name, .file = path, .repository = repository};
            const auto owner = owners.find(HSTStringUtils::toLower(name));
            if (owner != owners.end()) {
                found.state = State::shadowed;
                found.shadowedBy = owner->second;
                result.shadowed.push_back(std::move(found));
                continue;
            }
            const Scope opened;  // a costly platform hides no other
            std::shared_ptr<HTEQPlatform> platform;
            if (!readInto(found, filter.needsHardware() ? &platform : nullptr)) {
                result.broken.push_back(std::move(found));
                continue;
            }
            owners.emplace(HSTStringUtils::toLower(name), path);
            if (!filter.accepts(found) || (request.usable && !isUsable(platform, result.problems))) continue;
            if (request.latest) loaded.push_back(std::move(platform));
            if (!request.latest) emit(found);
            result.platforms.push_back(std::move(found));
        }
    }
    if (request.latest) {
        keepLatest(result.platforms, loaded);
        for (const FoundPlatform& found : result.platforms) emit(found);
    }
    return result;
}

Location locate(const std::string& name, const Repositories& where) {
    const SharedBudget shared;
    Location location{.searched = searchPath(where), .file = {}, .others = {}};
    const auto isWanted = [&](const std::string& candidate) { return HSTStringUtils::iequals(candidate, name); };
    HSTVector<HEXDiagnostic> problems;
    for (const std::string& repository : location.searched)
        for (auto& [path, stem] : descriptorsIn(repository, isWanted, problems)) {
            FoundPlatform found{.name = stem, .file = path, .repository = repository};
            const Scope opened;
            const bool isGood = readInto(found, nullptr);
            if (isGood && location.file.empty()) {
                location.file = path;
                continue;
            }
            if (isGood) {
                found.state = State::shadowed;
                found.shadowedBy = location.file;
            }
            location.others.push_back(std::move(found));
        }
    if (location.file.empty() && !location.others.empty()) location.file = location.others.front().file;
    return location;
}

std::string resolve(const std::string& fileOrName, const Repositories& where) {
    constexpr std::array kExtensions{"zdf", "cfa", "lfa", "spfm", "json", "xml", "hpfm"};
    const std::string extension = HUTFile::getExt(fileOrName);
    if (fileOrName.empty() || fileOrName.find('/') != std::string::npos ||
        std::any_of(kExtensions.begin(), kExtensions.end(),
                    [&](const char* known) { return HSTStringUtils::iequals(extension, known); }) ||
        (HUTFile::exists(fileOrName) && !HUTFile::isDir(fileOrName)))
        return fileOrName;
    const Location location = locate(fileOrName, where);
    if (!location.file.empty()) return location.file;
    if (HUTFile::exists(fileOrName)) return fileOrName;
    throw noPlatform(fileOrName, where);
}

RequestError noPlatform(const std::string& name, const Repositories& where) {
    const HSTVector<std::string> searched = searchPath(where);
    HSTVector<std::string> known;
    HSTVector<HEXDiagnostic> problems;
    for (const std::string& repository : searched)
        for (auto& [path, stem] : descriptorsIn(
                 repository, [](const std::string&) { return true; }, problems))
            known.push_back(std::move(stem));
    const std::string places = searched.empty() ? ": no directory was searched" : " in " + listOf(searched);
    return RequestError(FailureKind::unknownName,
                        {.text = "there is no platform '" + name + "'" + places + nearest(name, known)});
}

WhyNot whyNot(const std::string& path, const Repositories& where) {
    const HSTVector<std::string> searched = searchPath(where);
    std::optional<WhyNot> rule;
    for (const std::string& repository : searched) {
        const Judgement judgement(path, repository);
        if (judgement.isFound()) return verdictOn(judgement.found(), judgement.stem(), where);
        if (!rule) rule = judgement.rule;
    }
    if (rule) return *rule;
    return {.rule = "outside", .text = "it is in no searched directory: " + listOf(searched)};
}

}  // namespace teq_platform::requests
