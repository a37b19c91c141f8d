// Requests that write.
#include "platform/PlatformEdit.h"
#include "platform/PlatformPacker.h"
#include "platform/PlatformRequests.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "zip/ArchiveError.h"
#include "zip/Destination.h"
#include "zip/Request.h"

namespace teq_platform::requests {
namespace {

/// Opens the archive once, for the reads and for the change that follows.
void openForChange(const std::string& archive) {
    try {
        zip::openSharedForChange(archive);
    } catch (const zip::ArchiveError&) {  // reported by the reader or the writer
    }
}

}  // namespace

void checkDestination(const std::string& destination, bool mayReplace) {
    if (!mayReplace && HUTFile::exists(destination))
        throw RequestError(FailureKind::exists, {.file = destination, .text = "already exists"});
    if (const std::string directory = HUTFile::getParent(destination); !HUTFile::isDir(directory))
        throw RequestError(FailureKind::environment, {.file = directory, .text = "no such directory"});
}

void writeFile(const std::string& destination, std::string_view bytes, bool mayReplace) {
    checkDestination(destination, mayReplace);
    zip::writeDestination(
        destination, [bytes](const auto& take) { take(bytes); }, mayReplace);
}

void pack(const Pack& request) {
    if (!HUTFile::isDir(request.folder))
        throw RequestError(FailureKind::noSuchFile, {.file = request.folder, .text = "no such folder"});
    if (HUTFile::getExt(request.archive) == "rqa")
        throw RequestError(FailureKind::wrongUse,
                           {.file = request.archive, .text = "pack makes archives of platforms; use rqa create"});
    checkDestination(request.archive, request.mayReplace);
    PlatformPacker::pack(request.folder, request.archive, request.mayReplace, request.mayLack);
}

SetFileResult setFile(const SetFile& request) {
    if (!HUTFile::exists(request.archive)) throw HEXFileNotFoundException(request.archive);
    const zip::Request opened;
    if (!request.dryRun) openForChange(request.archive);
    PlatformEdit edit(request.archive, request.mode, request.stripPaths);
    SetFileResult result;
    for (const std::string& loss : edit.lost()) result.losses.push_back(HSTStringUtils::printable(loss));
    result.isRefused = !result.losses.empty() && !request.mayLose;
    if (!result.isRefused && !request.dryRun) edit.setFile(request.type, request.member, request.source);
    return result;
}

}  // namespace teq_platform::requests
