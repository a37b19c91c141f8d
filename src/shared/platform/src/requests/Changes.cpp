// Requests that write.
#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

#include "archive/PlatformArchive.h"
#include "platform/FileKind.h"
#include "platform/HTEQPfmFileTypes.h"
#include "platform/PlatformCheck.h"
#include "platform/PlatformEdit.h"
#include "platform/PlatformPacker.h"
#include "platform/PlatformRequests.h"
#include "requests/Inputs.h"
#include "text/HSTStringUtils.h"
#include "util/FolderNames.h"
#include "util/HUTFile.h"
#include "zip/Destination.h"
#include "zip/MemberName.h"
#include "zip/Request.h"

namespace teq_platform::requests {
void checkDestination(const std::string& destination, bool mayReplace) {
    if (!mayReplace) checkFree(destination);
    if (const std::string directory = HUTFile::getParent(destination); !HUTFile::isDir(directory))
        throw RequestError(FailureKind::environment, {.file = directory, .text = "no such directory"});
}

void writeFile(const std::string& destination, std::string_view bytes, bool mayReplace) {
    checkDestination(destination, mayReplace);
    zip::writeDestination(
        destination, [bytes](const auto& take) { take(bytes); }, mayReplace);
}

namespace {

/// Adds the first error of each member of `request.archive` that no warning names yet.
void warnOfErrors(const Pack& request, std::vector<HEXDiagnostic>& warnings) {
    std::set<std::string> named;
    for (const HEXDiagnostic& warning : warnings) named.insert(warning.file);
    for (const CheckFinding& finding : PlatformCheck::check(request.archive)) {
        if (finding.severity != CheckFinding::Severity::error || finding.member.empty()) continue;
        HEXDiagnostic inFolder = finding;
        inFolder.file = (std::filesystem::path(request.folder) / std::exchange(inFolder.member, "")).string();
        if (named.insert(inFolder.file).second) warnings.push_back(inFolder);
    }
}

/// Packs, and looks up the location of what the model refused.
std::vector<HEXDiagnostic> packed(const Pack& request) {
    try {
        auto warnings = PlatformPacker::pack(
            request.folder, request.archive,
            {.overwrite = request.mayReplace, .mayLack = request.mayLack, .exclude = request.exclude});
        for (HEXDiagnostic& warning : warnings)
            if (HUTFile::isFile(warning.file)) warning = located(warning, warning.file);
        return warnings;
    } catch (const HEXFileFault& e) {
        const HEXDiagnostic& diagnostic = e.diagnostic();
        if (!HUTFile::isFile(diagnostic.file)) throw;
        throw HEXFileFault(located(diagnostic, diagnostic.file));
    }
}

}  // namespace

std::vector<HEXDiagnostic> pack(const Pack& request) {
    if (!HUTFile::isDir(request.folder))
        throw RequestError(FailureKind::noSuchFile, {.file = request.folder, .text = "no such folder"});
    if (HUTFile::getExt(request.archive) == "rqa")
        throw RequestError(FailureKind::wrongUse,
                           {.file = request.archive, .text = "pack makes archives of platforms; use rqa create"});
    if (folderNames(request.folder).empty())
        throw RequestError(FailureKind::badInput, {.file = request.folder, .text = "the folder is empty"});
    checkDestination(request.archive, request.mayReplace);
    const bool isOther = fileKindOf(request.archive) != FileKind::hardware && !zip::isStream(request.archive);
    const HEXDiagnostic other{.file = request.archive, .text = "the extension is not .lfa or .cfa"};
    if (isOther && !request.mayLack) throw RequestError(FailureKind::wrongUse, other);
    auto warnings = packed(request);
    if (isOther)
        warnings.insert(warnings.begin(), other);
    else if (!zip::isStream(request.archive))
        warnOfErrors(request, warnings);
    return warnings;
}

namespace {

void expectName(const SetFile& request) {
    if (const auto fault = zip::digestNameFault(request.member, true); !fault.empty())
        throw RequestError(
            FailureKind::wrongUse,
            {.file = request.archive, .member = request.member, .text = "the name " + std::string(fault)});
}

void expectFreeMember(const SetFile& request, const HSTVector<ListedFile>& listed) {
    const std::string extension = HUTFile::getExt(request.archive);
    for (int i = 0; i < static_cast<int>(archive::PlatformMember::count_); ++i)
        if (archive::platformMember(static_cast<archive::PlatformMember>(i), extension) == request.member)
            throw RequestError(FailureKind::refused, {.file = request.archive,
                                                      .member = request.member,
                                                      .text = "this is a metadata member, not a file of a type"});
    for (const ListedFile& file : listed)
        if (file.member == request.member && !request.mayTake && !HSTStringUtils::iequals(file.type, request.type))
            throw RequestError(FailureKind::refused, {.file = request.archive,
                                                      .member = request.member,
                                                      .text = "the metadata lists this member as " + file.type +
                                                              "; it would be replaced for both types (--force)"});
}

void expectType(const SetFile& request, const HSTVector<ListedFile>& listed) {
    if (request.type.empty()) throw RequestError(FailureKind::wrongUse, {.text = "the file type is empty"});
    const auto isIt = [&](const std::string& type) { return HSTStringUtils::iequals(type, request.type); };
    if (HTEQPfmFileTypes::toFileType(request.type) != HTEQPfmFileTypes::FileType::UNKNOWN ||
        std::ranges::any_of(listed, isIt, &ListedFile::type))
        return;
    HSTVector<std::string> known;
    for (const auto& [type, text] : HTEQPfmFileTypes::getFileTypeMap()) known.push_back(text);
    throw RequestError(FailureKind::unknownName,
                       {.text = "there is no file type '" + request.type + "'" + nearest(request.type, known)});
}

/// What the change does besides the losses.
HSTVector<std::string> changesOf(const SetFile& request, const HSTVector<ListedFile>& listed) {
    bool isThere = archive::PlatformArchive(request.archive).contains(request.member);
    HSTVector<std::string> changes{(isThere ? "replaces the member " : "adds the member ") + request.member};
    for (const ListedFile& file : listed)
        if (HSTStringUtils::iequals(file.type, request.type) && file.member != request.member)
            changes.push_back("no longer lists " + file.member + " as " + file.type + "; the member stays");
    if (std::ranges::none_of(listed, [&](const ListedFile& file) {
            return file.member == request.member && HSTStringUtils::iequals(file.type, request.type);
        }))
        changes.push_back("lists " + request.member + " as " + request.type);
    for (std::string& change : changes) change = HSTStringUtils::printable(change);
    return changes;
}

}  // namespace

SetFileResult setFile(const SetFile& request) {
    checkInput(request.archive);
    checkInput(request.source);
    const zip::Request opened;
    if (!request.dryRun) openForChange(request.archive);
    PlatformEdit edit(request.archive, request.mode, request.stripPaths);
    const HSTVector<ListedFile> listed = listedFiles(edit.platform());
    expectType(request, listed);
    expectName(request);
    expectFreeMember(request, listed);
    SetFileResult result;
    result.changes = changesOf(request, listed);
    for (const std::string& loss : edit.lost()) result.losses.push_back(HSTStringUtils::printable(loss));
    result.isRefused = !result.losses.empty() && !request.mayLose;
    if (!result.isRefused && !request.dryRun) edit.setFile(request.type, request.member, request.source);
    return result;
}

}  // namespace teq_platform::requests
