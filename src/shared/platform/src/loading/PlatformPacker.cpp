#include "platform/PlatformPacker.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "archive/PlatformArchive.h"
#include "loading/ArchiveRoad.h"
#include "loading/PackPatterns.h"
#include "msg/HEXFileFault.h"
#include "platform/FileKind.h"
#include "platform/HPLBoard.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "zip/FolderPacker.h"
#include "zip/Request.h"

namespace teq_platform {
namespace {

using Names = HSTVector<std::string>;
using Warnings = std::vector<HEXDiagnostic>;
using archive::PlatformArchive;

/// The names of the platform's files: those of its list first, then those of its board.
struct Listed {
    Names files, others;
    bool isWhole = false;  ///< XML metadata names files in more places than its list
};

/// The diagnostic for a member of an archive that is not kept: it names the file in the folder.
HEXDiagnostic inFolder(const std::string& folder, HEXDiagnostic diagnostic) {
    diagnostic.file = folder;
    if (const std::string member = std::exchange(diagnostic.member, ""); !member.empty())
        diagnostic.file = (std::filesystem::path(folder) / member).string();
    return diagnostic;
}

Listed listedIn(const PlatformArchive& archive, const std::string& folder) {
    HPLPlatform platform;
    try {
        loading::fillFromArchive(platform, archive.name(), HwMetadataMode::Default, loading::Route::askFirst);
    } catch (const HEXFileFault& e) {
        throw HEXFileFault(inFolder(folder, e.diagnostic()));
    }
    Listed listed;
    const auto metadata = archive.metadata(HwMetadataMode::Default);
    listed.isWhole = metadata && !metadata->isXml();
    const std::unique_ptr<HSTFwdIter<HPLFile*>> files(platform.createFileVecIter());
    while (files->hasNext()) {
        const HPLFile* const file = files->next();
        listed.files.push_back(file->getName());
        // Files of emulation targets are beside the list of targets.
        if (HSTStringUtils::iequals(file->getType(), "EMU_XML") ||
            HSTStringUtils::iequals(file->getType(), "EMU_JSON"))
            listed.others.push_back(HUTFile::getParent(file->getName()));
    }
    const HPLBoard& board = platform.getReadOnlyBoard();
    listed.others.insert(listed.others.end(),
                         {board.getImgFileHdpi(), board.getImgFileMdpi(), board.getImgFileLdpi()});
    return listed;
}

/// What the library itself reads of an archive besides the files of the list.
bool isOwn(const PlatformArchive& archive, const std::string& member) {
    return member == "hwdef.xml" || member == "sysdef.xml" || member.starts_with("hw_emu/") ||
           std::ranges::any_of(archive.allMetadata(),
                               [&](const auto& metadata) { return metadata.member == member; });
}

/// The members that are neither the library's own nor listed, in a listed folder, or in a nested archive.
Names unlisted(const PlatformArchive& archive, const Listed& listed) {
    std::set<std::string> known(listed.files.begin(), listed.files.end());
    known.insert(listed.others.begin(), listed.others.end());
    Names found;
    for (const archive::MemberInfo& member : archive.source().files()) {
        bool isKnown = known.contains(member.name) || isOwn(archive, member.name);
        for (auto at = member.name.find('/'); !isKnown && at != std::string::npos; at = member.name.find('/', at + 1))
            isKnown = known.contains(member.name.substr(0, at));
        if (!isKnown) found.push_back(member.name);
    }
    return found;
}

std::string shown(const Names& names) {
    constexpr std::size_t kMaxNames = 10;
    const Names first(names.begin(), names.begin() + std::min(names.size(), kMaxNames));
    const std::string more =
        names.size() > kMaxNames ? " and " + std::to_string(names.size() - kMaxNames) + " more" : "";
    return HSTStringUtils::printable(HSTStringUtils::join(first, ", ")) + more;
}

/// Adds one warning for each kind of files.
void addWarnings(Warnings& warnings, const PlatformArchive& archive, const Listed& listed,
                 const std::string& folder) {
    Names hidden, backups, others;
    for (const std::string& name : unlisted(archive, listed))
        (loading::isHidden(name) ? hidden : loading::isBackup(name) ? backups : others).push_back(name);
    const auto add = [&](const char* what, const Names& names) {
        if (names.empty()) return;
        warnings.push_back({.file = folder, .text = what + shown(names) + "; --exclude leaves files out"});
    };
    add("hidden files are packed: ", hidden);
    add("backups of an editor are packed: ", backups);
    if (listed.isWhole) add("files are packed that the metadata does not list: ", others);
}

[[noreturn]] void refuseWithoutMetadata(const PlatformArchive& archive, const std::string& folder) {
    const std::string extension = HUTFile::getExt(archive.name());
    const std::string other = extension == "cfa" ? "lfa" : "cfa";
    std::string text = "the folder has no metadata member " + extension + ".json or " + extension + ".xml";
    for (const char* form : {".json", ".xml"})
        if (archive.contains(other + form)) text += "; with " + other + form + " it is packed into a ." + other;
    throw HEXFileFault({.file = folder, .text = text});
}

void expectFiles(const PlatformArchive& archive, const Names& files, const std::string& folder) {
    Names missing;
    for (const std::string& name : files)
        if (!archive.lists(name)) missing.push_back(name);
    if (!missing.empty())
        throw HEXFileFault(
            {.file = folder, .text = "the metadata lists missing files: " + HSTStringUtils::join(missing, ", ")});
}

/// The warnings for a finished archive. That it is not complete is the first of them if it `mayLack`, else thrown.
Warnings checked(const std::string& file, const std::string& folder, bool mayLack) {
    const zip::Request request;
    const PlatformArchive archive(file);
    Listed listed;
    Warnings warnings;
    try {
        if (fileKindOf(file) == FileKind::hardware) {  // else the extension names no metadata
            if (!archive.metadata(HwMetadataMode::Default)) refuseWithoutMetadata(archive, folder);
            listed = listedIn(archive, folder);
            expectFiles(archive, listed.files, folder);
        }
    } catch (const HEXFileFault& e) {
        if (!mayLack) throw;
        warnings.push_back(e.diagnostic());
    }
    addWarnings(warnings, archive, listed, folder);
    return warnings;
}

}  // namespace

Warnings PlatformPacker::pack(const std::string& folder, const std::string& archive, const Options& options) {
    loading::PackPatterns patterns(options.exclude, folder);
    Warnings warnings;
    packFolder(
        folder, archive, options.overwrite,
        [&](const std::string& made) { warnings = checked(made, folder, options.mayLack); }, {},
        [&](const std::string& path) { return patterns.exclude(path); });
    return warnings;
}

}  // namespace teq_platform
