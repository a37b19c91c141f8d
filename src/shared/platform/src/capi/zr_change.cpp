// Making and changing archives.
#include <memory>

#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "platform/NewPlatform.h"
#include "platform/PlatformEmulation.h"
#include "platform/PlatformRequests.h"
#include "platform/zr_platform.h"
#include "zip/HUTZip.h"

using namespace capi;
namespace requests = teq_platform::requests;

zr_code zr_new_platform(const char* folder, const char* kind, zr_text** files, zr_error** error) noexcept {
    if (files) *files = nullptr;
    return guarded(error, folder, [&] {
        std::string lines;
        for (const std::string& file :
             requests::newPlatform({.folder = needText(folder, "folder"), .kind = kind ? kind : "card"}))
            lines += file + "\n";
        if (files) give(files, std::move(lines));
    });
}

zr_code zr_pack(const char* folder, const char* archive, std::uint32_t flags, zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        const std::string from = needText(folder, "folder"), to = needText(archive, "archive");
        checkFlags(flags, ZR_OVERWRITE | ZR_MAY_LACK);
        requests::pack({.folder = from,
                        .archive = to,
                        .mayReplace = (flags & ZR_OVERWRITE) != 0,
                        .mayLack = (flags & ZR_MAY_LACK) != 0});
    });
}

zr_code zr_set_file(const char* archive, const char* type, const char* member, const char* source,
                    std::uint32_t flags, const zr_options* options, zr_text** losses, zr_error** error) noexcept {
    if (losses) *losses = nullptr;
    std::unique_ptr<zr_text> lost;
    const zr_code code = guarded(error, archive, [&] {
        requests::SetFile request{.archive = needText(archive, "archive"),
                                  .type = needText(type, "type"),
                                  .member = needText(member, "member"),
                                  .source = needText(source, "source"),
                                  .mayLose = (flags & ZR_LOSE_KEYS) != 0,
                                  .mayTake = (flags & ZR_OVERWRITE) != 0,
                                  .stripPaths = (flags & ZR_STRIP_PATHS) != 0,
                                  .dryRun = (flags & ZR_DRY_RUN) != 0};
        checkFlags(flags, ZR_OVERWRITE | ZR_LOSE_KEYS | ZR_STRIP_PATHS | ZR_DRY_RUN);
        const Options taken = readOptions(options);
        request.mode = taken.mode;
        const requests::Scope scope(taken.budget);
        const requests::SetFileResult result = requests::setFile(request);
        lost = std::make_unique<zr_text>();
        for (const std::string& line : result.losses) lost->bytes += line + "\n";
        if (result.isRefused)
            throw teq_platform::RequestError(
                teq_platform::FailureKind::refused,
                {.file = request.archive, .text = "keys of the metadata would be lost or changed"});
    });
    if (losses && (code == ZR_OK || code == ZR_REFUSED)) *losses = lost.release();
    return code;
}

zr_code zr_emulate(const char* archive, const char* destination, const zr_emulation* emulation, std::uint32_t flags,
                   zr_text** members, zr_error** error) noexcept {
    if (members) *members = nullptr;
    return guarded(error, archive, [&] {
        const auto textOr = [](const char* text) { return std::string(text ? text : ""); };
        const zr_emulation given = readStruct(need(emulation, "emulation"));
        requests::Emulate request{.archive = needText(archive, "archive"),
                                  .name = needText(given.name, "name"),
                                  .destination = needText(destination, "destination"),
                                  .installation = textOr(given.installation),
                                  .keep = textOr(given.keep),
                                  .isDynamic = (flags & ZR_DYNAMIC) != 0,
                                  .mayReplace = (flags & ZR_OVERWRITE) != 0,
                                  .mayRunPrograms = (flags & ZR_MAY_RUN_PROGRAMS) != 0,
                                  .dryRun = (flags & ZR_DRY_RUN) != 0};
        checkFlags(flags, ZR_OVERWRITE | ZR_DRY_RUN | ZR_DYNAMIC | ZR_MAY_RUN_PROGRAMS);
        constexpr std::uint64_t kMaxMilliseconds = 1'000'000'000;
        if (given.milliseconds > kMaxMilliseconds) wrongUse("the time limit is above 1000000000 milliseconds");
        request.timeLimit = std::chrono::milliseconds(given.milliseconds);
        auto names = std::make_unique<zr_text>();
        for (const requests::EmulationMember& member : requests::emulate(request)) names->bytes += member.name + "\n";
        if (members) *members = names.release();
    });
}

zr_code zr_stamp_digest(const char* archive, zr_error** error) noexcept {
    return guarded(error, archive, [&] { HUTZip::attachDigestEn(needFile(archive, "archive")); });
}
