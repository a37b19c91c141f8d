#include "platform/PlatformPacker.h"

#include <algorithm>
#include <memory>
#include <set>
#include <vector>

#include "archive/PlatformArchive.h"
#include "loading/ArchiveRoad.h"
#include "loading/PackPatterns.h"
#include "msg/HEXFileFault.h"
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
using archive::PlatformArchive;

/// The names of the platform's files: those of its list first, then those of its board.
struct Listed {
    Names files, others;
};

Listed listedIn(const std::string& archive) {
    HPLPlatform platform;
    loading::fillFromArchive(platform, archive, HwMetadataMode::Default, loading::Route::askFirst);
    Listed listed;
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

/// One warning for each kind of files.
Names warningsOf(const PlatformArchive& archive, const Listed& listed) {
    // XML metadata names files in more places than its list.
    const bool isXml = archive.metadata(HwMetadataMode::Default)->isXml();
    Names hidden, backups, others;
    for (const std::string& name : unlisted(archive, listed))
        (loading::isHidden(name) ? hidden : loading::isBackup(name) ? backups : others).push_back(name);
    Names warnings;
    const auto add = [&](const char* what, const Names& names) {
        if (!names.empty()) warnings.push_back(what + shown(names));
    };
    add("hidden files are packed: ", hidden);
    add("backups of an editor are packed: ", backups);
    if (!isXml) add("files are packed that the metadata does not list: ", others);
    return warnings;
}

[[noreturn]] void refuseWithoutMetadata(const PlatformArchive& archive, const std::string& folder) {
    const std::string extension = HUTFile::getExt(archive.name());
    const std::string other = extension == "cfa" ? "lfa" : "cfa";
    std::string text = "the folder has no metadata member " + extension + ".json or " + extension + ".xml";
    for (const char* form : {".json", ".xml"})
        if (archive.contains(other + form)) text += "; with " + other + form + " it is packed into a ." + other;
    throw HEXFileFault({.file = folder, .text = text});
}

/// The warnings for a finished archive; throws if it is not complete.
Names checked(const std::string& file, const std::string& folder) {
    const zip::Request request;
    const PlatformArchive archive(file);
    if (!archive.metadata(HwMetadataMode::Default)) refuseWithoutMetadata(archive, folder);
    Listed listed;
    try {
        listed = listedIn(file);
    } catch (const HEXFileFault& e) {
        HEXDiagnostic diagnostic = e.diagnostic();
        diagnostic.file = folder;  // the archive is not kept
        throw HEXFileFault(diagnostic);
    }
    Names missing;
    for (const std::string& name : listed.files)
        if (!archive.lists(name)) missing.push_back(name);
    if (!missing.empty())
        throw HEXFileFault(
            {.file = folder, .text = "the metadata lists missing files: " + HSTStringUtils::join(missing, ", ")});
    return warningsOf(archive, listed);
}

}  // namespace

Names PlatformPacker::pack(const std::string& folder, const std::string& archive, const Options& options) {
    const loading::PackPatterns patterns(options.exclude, folder);
    Names warnings;
    packFolder(
        folder, archive, options.overwrite,
        [&](const std::string& made) {
            if (!options.mayLack) warnings = checked(made, folder);
        },
        {}, [&](const std::string& path) { return patterns.exclude(path); });
    return warnings;
}

}  // namespace teq_platform
