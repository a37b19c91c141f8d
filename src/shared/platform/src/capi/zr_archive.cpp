// Reading archives.
#include <algorithm>
#include <memory>
#include <vector>

#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "msg/Budget.h"
#include "platform/PlatformRequests.h"
#include "platform/zr_platform.h"
#include "util/HUTFile.h"
#include "zip/Archive.h"
#include "zip/ArchiveCheck.h"
#include "zip/Destination.h"
#include "zip/ExtractionDirectory.h"
#include "zip/OutputBudget.h"

using namespace capi;
namespace requests = teq_platform::requests;
using teq_platform::FailureKind;
using teq_platform::RequestError;

struct zr_archive {
    zr_archive(const std::string& path, std::uint64_t bytes) : archive(path), budget(bytes) {
        names.reserve(archive.members().size());
        for (const zip::Member& member : archive.members()) names.emplace_back(member.name);
    }
    const zip::Member& at(std::uint64_t index) const {
        checkIndex(index, names.size());
        return archive.members()[index];
    }

    zip::Archive archive;
    std::vector<std::string> names;  ///< each with a final NUL
    std::uint64_t budget;            ///< bytes that one call may decompress
};

struct zr_verification {
    HUTZip::Verification found;
};

namespace {

const char* fileOf(const zr_archive* archive) { return archive ? archive->archive.name().c_str() : nullptr; }

zr_member describe(const zip::Member& member, const std::string& name) {
    return {.size = 0,
            .name = name.c_str(),
            .name_size = name.size(),
            .bytes = member.size,
            .packed_bytes = member.packedSize,
            .crc = member.crc,
            .is_directory = member.isDirectory() ? 1U : 0U};
}

}  // namespace

zr_code zr_archive_open(const char* file, const zr_options* options, zr_archive** archive,
                        zr_error** error) noexcept {
    if (archive) *archive = nullptr;
    return guarded(error, file, [&] {
        need(archive, "archive");
        const std::string path = needFile(file, "file");
        const Options taken = readOptions(options);
        *archive = std::make_unique<zr_archive>(path, taken.budget).release();
    });
}

void zr_archive_free(zr_archive* archive) noexcept { delete archive; }

std::uint64_t zr_archive_count(const zr_archive* archive) noexcept { return archive ? archive->names.size() : 0; }

zr_code zr_archive_member(const zr_archive* archive, std::uint64_t index, zr_member* member,
                          zr_error** error) noexcept {
    return guarded(error, fileOf(archive), [&] {
        const zip::Member& found = need(archive, "archive").at(index);
        writeStruct(need(member, "member"), describe(found, archive->names[index]));
    });
}

zr_code zr_archive_find(const zr_archive* archive, const char* name, std::uint64_t* index,
                        zr_error** error) noexcept {
    return guarded(error, fileOf(archive), [&] {
        const zip::Archive& opened = need(archive, "archive").archive;
        const std::string asked = needText(name, "name");
        need(index, "index");
        const zip::Member* const found = opened.find(asked);
        if (!found)
            throw RequestError(FailureKind::unknownName,
                               {.file = opened.name(), .text = "there is no member '" + asked + "'"});
        *index = static_cast<std::uint64_t>(found - opened.members().data());
    });
}

zr_code zr_archive_read(const zr_archive* archive, std::uint64_t index, std::uint64_t bound, zr_text** bytes,
                        zr_error** error) noexcept {
    if (bytes) *bytes = nullptr;
    return guarded(error, fileOf(archive), [&] {
        const zip::Member& member = need(archive, "archive").at(index);
        const std::uint64_t limit = std::min(bound > 0 ? bound : zip::Archive::kMetadataBound, archive->budget);
        give(bytes, archive->archive.read(member, limit));
    });
}

zr_code zr_archive_extract(const zr_archive* archive, std::uint64_t index, const char* file, std::uint32_t flags,
                           zr_error** error) noexcept {
    return guarded(error, file, [&] {
        const zip::Member& member = need(archive, "archive").at(index);
        const std::string destination = needText(file, "file");
        checkFlags(flags, ZR_OVERWRITE);
        const bool mayReplace = (flags & ZR_OVERWRITE) != 0;
        teq_platform::requests::checkDestination(destination, mayReplace);
        zip::OutputBudget budget(archive->budget);
        zip::writeDestination(
            destination, [&](const zip::Archive::Sink& take) { archive->archive.copyTo(member, take, budget); },
            mayReplace);
    });
}

zr_code zr_archive_extract_all(const zr_archive* archive, const char* folder, std::uint32_t flags,
                               zr_error** error) noexcept {
    return guarded(error, folder, [&] {
        const zip::Archive& opened = need(archive, "archive").archive;
        const std::string destination = needText(folder, "folder");
        checkFlags(flags, ZR_OVERWRITE);
        if (!HUTFile::isDir(destination))
            throw RequestError(FailureKind::noSuchFile, {.file = destination, .text = "no such folder"});
        const Budget counted;
        zip::OutputBudget budget(archive->budget);
        zip::ExtractionDirectory(destination).extractAll(opened, "", (flags & ZR_OVERWRITE) != 0, budget);
    });
}

zr_code zr_extract(const char* archive, const char* name, const char* file, std::uint32_t flags,
                   const zr_options* options, zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        checkFlags(flags, ZR_OVERWRITE | ZR_BY_TYPE | ZR_REPAIR_HPFM);
        const Options taken = readOptions(options);
        const requests::Scope scope(taken.budget);
        requests::extract({.archive = needText(archive, "archive"),
                           .name = needText(name, "name"),
                           .destination = needText(file, "file"),
                           .mode = taken.mode,
                           .isType = (flags & ZR_BY_TYPE) != 0,
                           .repairHpfm = (flags & ZR_REPAIR_HPFM) != 0,
                           .mayReplace = (flags & ZR_OVERWRITE) != 0});
    });
}

zr_code zr_archive_verify(const zr_archive* archive, zr_verification** verification, zr_error** error) noexcept {
    if (verification) *verification = nullptr;
    return guarded(error, fileOf(archive), [&] {
        need(verification, "verification");
        *verification =
            std::make_unique<zr_verification>(zip::checkArchive(need(archive, "archive").archive)).release();
    });
}

void zr_verification_free(zr_verification* verification) noexcept { delete verification; }

zr_digest zr_verification_digest(const zr_verification* verification) noexcept {
    using State = HUTZip::DigestState;
    switch (verification ? verification->found.digest : State::none) {
        case State::valid: return ZR_DIGEST_VALID;
        case State::broken: return ZR_DIGEST_BROKEN;
        default: return ZR_DIGEST_NONE;
    }
}

std::uint64_t zr_verification_count(const zr_verification* verification) noexcept {
    return verification ? verification->found.differences.size() : 0;
}

static_assert(static_cast<int>(HUTZip::Reason::crc) == ZR_REASON_CRC);
static_assert(static_cast<int>(HUTZip::Reason::size) == ZR_REASON_SIZE);
static_assert(static_cast<int>(HUTZip::Reason::damaged) == ZR_REASON_DAMAGED);
static_assert(static_cast<int>(HUTZip::Reason::hash) == ZR_REASON_HASH);
static_assert(static_cast<int>(HUTZip::Reason::field) == ZR_REASON_FIELD);
static_assert(static_cast<int>(HUTZip::Reason::extra) == ZR_REASON_EXTRA);
static_assert(static_cast<int>(HUTZip::Reason::missing) == ZR_REASON_MISSING);

zr_code zr_verification_difference(const zr_verification* verification, std::uint64_t index,
                                   zr_difference* difference, zr_error** error) noexcept {
    return guarded(error, nullptr, [&] {
        const auto& all = need(verification, "verification").found.differences;
        checkIndex(index, all.size());
        const HUTZip::Difference& found = all[index];
        writeStruct(need(difference, "difference"), {.size = 0,
                                                     .member = found.member.c_str(),
                                                     .text = found.text.c_str(),
                                                     .reason = static_cast<std::uint32_t>(found.reason),
                                                     .reserved = 0});
    });
}
