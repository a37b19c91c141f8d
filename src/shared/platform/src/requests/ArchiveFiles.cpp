// The files of an archive: what the metadata lists, and copying one out by the name of a member or by its type.
#include <fmt/core.h>

#include <map>
#include <optional>
#include <utility>

#include "archive/PlatformArchive.h"
#include "msg/HEXAll.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHpfmUtl.h"
#include "platform/PlatformLoader.h"
#include "platform/PlatformRequests.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/PrivateTmpDir.h"
#include "util/WholeFile.h"
#include "zip/Request.h"

namespace teq_platform::requests {
namespace {

using archive::PlatformArchive;

/// The files that the metadata lists, without their state.
HSTVector<ListedFile> namesOf(const HPLPlatform& platform) {
    HSTVector<ListedFile> listed;
    const std::unique_ptr<HSTFwdIter<HPLFile*>> files(platform.createFileVecIter());
    const std::string directory = platform.isChildHardwareEmuPlatform() ? platform.getHwEmuDir() + "/" : "";
    while (files->hasNext()) {
        const HPLFile* file = files->next();
        listed.push_back({file->getType(), directory + file->getName()});
    }
    return listed;
}

/// The same for the archive of this name; empty if its metadata cannot be read.
HSTVector<ListedFile> namesIn(const std::string& archive, HwMetadataMode mode) {
    try {
        const auto platform = PlatformLoader::open(archive, mode);
        const auto* hardware = dynamic_cast<const HPLPlatform*>(platform->getHardwarePlatform());
        return hardware ? namesOf(*hardware) : HSTVector<ListedFile>();
    } catch (const HEXAll&) {  // members can still be extracted by name
        return {};
    }
}

[[noreturn]] void refuse(const PlatformArchive& archive, const std::string& name, bool isType,
                         const HSTVector<ListedFile>& listed) {
    HSTVector<std::string> known;
    for (const ListedFile& file : listed) known.push_back(file.type);
    if (!isType)
        for (archive::MemberInfo& member : archive.source().files()) known.push_back(std::move(member.name));
    throw RequestError(FailureKind::unknownName, {.file = archive.name(),
                                                  .text = std::string("no ") + (isType ? "" : "member or ") +
                                                          "file type '" + name + "'" + nearest(name, known)});
}

/// The member that `name` selects: the member of that name, otherwise the last file of that type.
std::string memberFor(const PlatformArchive& archive, const std::string& name, const Extract& request) {
    if (!request.isType && archive.contains(name)) return name;
    const HSTVector<ListedFile> listed = namesIn(archive.name(), request.mode);
    for (auto file = listed.rbegin(); file != listed.rend(); ++file)
        if (HSTStringUtils::iequals(file->type, name)) return file->member;
    refuse(archive, name, request.isType, listed);
}

void copy(const PlatformArchive& archive, const std::string& member, const std::string& destination,
          bool mayReplace) {
    if (!archive.copy(member, destination, mayReplace))
        throw HEXFileFault({.file = archive.name(), .member = member, .text = "no such member"});
}

void extractMember(const PlatformArchive& archive, const std::string& member, const Extract& request,
                   std::optional<util::ScratchDirectory>& scratch) {
    if (!request.repairHpfm) return copy(archive, member, request.destination, request.mayReplace);
    if (!scratch) scratch.emplace();
    const std::string hpfm = scratch->path() + "/repaired.hpfm";
    copy(archive, member, hpfm, false);
    HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(hpfm);
    writeFile(request.destination, wholefile::read(hpfm, zip::OutputBudget::kOfCall), request.mayReplace);
}

/// The diagnostic of a nested archive, which names the copy that was read: it gets the location of the original.
HEXDiagnostic inArchive(HEXDiagnostic diagnostic, const std::string& copy, const PlatformArchive& archive,
                        const std::string& member) {
    if (diagnostic.file != copy) return diagnostic;
    diagnostic.file = archive.name();
    diagnostic.member = diagnostic.member.empty() ? member : member + "!" + diagnostic.member;
    return diagnostic;
}

/// Copies what `name` selects; the part before a "!" selects a nested archive. An archive may contain itself: `level`
/// bounds the recursion.
void extractFrom(const PlatformArchive& archive, const std::string& name, const Extract& request,
                 std::optional<util::ScratchDirectory>& scratch, int level = 0) {
    constexpr int kMaxNesting = 16;
    const std::size_t mark = name.find('!');
    if (mark == std::string::npos || archive.contains(name))
        return extractMember(archive, memberFor(archive, name, request), request, scratch);
    const std::string outer = memberFor(archive, name.substr(0, mark), request);
    if (level == kMaxNesting)
        throw HEXFileFault({.file = archive.name(),
                            .member = outer,
                            .text = fmt::format("archives nest deeper than {} levels", kMaxNesting)});
    if (!scratch) scratch.emplace();
    const std::string inner = scratch->path() + "/" + std::to_string(name.size()) + "." + HUTFile::getExt(outer);
    copy(archive, outer, inner, false);
    try {
        extractFrom(PlatformArchive(inner), name.substr(mark + 1), request, scratch, level + 1);
    } catch (const RequestError& e) {
        throw RequestError(e.kind(), inArchive(e.diagnostic(), inner, archive, outer));
    } catch (const HEXFileFault& e) {
        throw HEXFileFault(inArchive(e.diagnostic(), inner, archive, outer));
    }
}

}  // namespace

HSTVector<ListedFile> listedFiles(const HPLPlatform& platform) {
    const PlatformArchive archive(platform.getPlatformFile());
    std::map<std::string, std::uint64_t> sizes;
    for (archive::MemberInfo& member : archive.source().files()) sizes.emplace(std::move(member.name), member.size);
    HSTVector<ListedFile> listed = namesOf(platform);
    for (ListedFile& file : listed) {
        const auto at = sizes.find(file.member);
        if (at != sizes.end()) {
            file.state = ListedFile::State::file;
            file.size = at->second;
        } else if (archive.lists(file.member)) {
            file.state = ListedFile::State::folder;
        }
    }
    return listed;
}

void extract(const Extract& request) {
    if (!HUTFile::isFile(request.archive)) throw HEXFileNotFoundException(request.archive);
    checkDestination(request.destination, request.mayReplace);
    const zip::Request opened;
    std::optional<util::ScratchDirectory> scratch;
    extractFrom(PlatformArchive(request.archive), request.name, request, scratch);
}

}  // namespace teq_platform::requests
