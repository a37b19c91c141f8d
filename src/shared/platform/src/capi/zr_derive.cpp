// Files made from others.
#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "platform/DerivedFiles.h"
#include "platform/zr_platform.h"

using namespace capi;
namespace requests = teq_platform::requests;

namespace {

constexpr std::uint32_t kWriting = ZR_OVERWRITE | ZR_DRY_RUN;

bool has(std::uint32_t flags, zr_flag flag) { return (flags & flag) != 0; }

std::string textOr(const char* text, const char* missing) { return text ? text : missing; }

HSTVector<std::string> textsOf(const char* const* texts, std::uint64_t count, const char* name) {
    HSTVector<std::string> all;
    if (count > 0) need(texts, name);
    for (std::uint64_t i = 0; i < count; ++i) all.push_back(needText(texts[i], name));
    return all;
}

HSTVector<requests::NamedFile> filesOf(const char* const* files, std::uint64_t count) {
    HSTVector<requests::NamedFile> named;
    for (const std::string& text : textsOf(files, count, "files")) named.push_back(requests::namedFile(text));
    return named;
}

/// One text of lines for the caller, if wanted.
void giveLines(zr_text** to, const HSTVector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    if (to) give(to, std::move(text));
}

}  // namespace

zr_code zr_labels(const char* file, const char* partition_metadata, const char* ext_metadata, const char* partition,
                  std::uint32_t flags, zr_text** labels, zr_error** error) noexcept {
    if (labels) *labels = nullptr;
    return guarded(error, file, [&] {
        checkFlags(flags, kWriting);
        const requests::Scope scope;
        std::string document = requests::labels({.file = needText(file, "file"),
                                                 .partitionMetadata = textOr(partition_metadata, ""),
                                                 .extMetadata = textOr(ext_metadata, ""),
                                                 .partition = textOr(partition, "/"),
                                                 .mayReplace = has(flags, ZR_OVERWRITE),
                                                 .dryRun = has(flags, ZR_DRY_RUN)});
        if (labels) give(labels, std::move(document));
    });
}

zr_code zr_create_fixed(const char* archive, const char* const* files, std::uint64_t file_count, std::uint32_t flags,
                        zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        checkFlags(flags, kWriting);
        requests::createFixed({.archive = needText(archive, "archive"),
                               .files = filesOf(files, file_count),
                               .mayReplace = has(flags, ZR_OVERWRITE),
                               .dryRun = has(flags, ZR_DRY_RUN)});
    });
}

zr_code zr_from_hdf(const char* definition, const char* archive, std::uint32_t flags, zr_error** error) noexcept {
    return guarded(error, definition, [&] {
        checkFlags(flags, kWriting);
        const requests::Scope scope;
        requests::fromDefinition({.definition = needText(definition, "definition"),
                                  .archive = needText(archive, "archive"),
                                  .mayReplace = has(flags, ZR_OVERWRITE),
                                  .dryRun = has(flags, ZR_DRY_RUN)});
    });
}

zr_code zr_check_modules(const char* platform, const char* const* modules, std::uint64_t module_count,
                         std::uint64_t* misfits, zr_text** reasons, zr_error** error) noexcept {
    if (reasons) *reasons = nullptr;
    return guarded(error, platform, [&] {
        const std::string file = needText(platform, "platform");
        std::uint64_t& count = need(misfits, "misfits");
        const requests::Scope scope;
        HSTVector<std::string> lines;
        for (const auto& fit : requests::moduleFits(file, textsOf(modules, module_count, "modules")))
            if (!fit.fits) lines.push_back(HEXDiagnostic{.file = fit.file, .text = fit.reason}.format());
        giveLines(reasons, lines);
        count = lines.size();
    });
}

zr_code zr_convert_emulation(const char* file, const char* destination, std::uint32_t flags, zr_text** losses,
                             zr_error** error) noexcept {
    if (losses) *losses = nullptr;
    return guarded(error, file, [&] {
        checkFlags(flags, kWriting);
        const requests::Scope scope;
        giveLines(losses, requests::convertEmulation({.file = needText(file, "file"),
                                                      .destination = needText(destination, "destination"),
                                                      .mayReplace = has(flags, ZR_OVERWRITE),
                                                      .dryRun = has(flags, ZR_DRY_RUN)}));
    });
}

zr_code zr_rqa_create(const char* archive, const zr_rqa* place, const char* const* files, std::uint64_t file_count,
                      std::uint32_t flags, zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        checkFlags(flags, kWriting);
        const zr_rqa known = place ? readStruct(*place) : zr_rqa{};
        requests::createRqa({.archive = needText(archive, "archive"),
                             .files = filesOf(files, file_count),
                             .instPath = textOr(known.inst_path, ""),
                             .drBdInstName = textOr(known.dr_bd_inst_name, ""),
                             .pfmName = textOr(known.pfm_name, ""),
                             .hierName = textOr(known.hier_name, ""),
                             .mayReplace = has(flags, ZR_OVERWRITE),
                             .dryRun = has(flags, ZR_DRY_RUN)});
    });
}

zr_code zr_rqa_add(const char* archive, const char* const* files, std::uint64_t file_count, std::uint32_t flags,
                   zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        checkFlags(flags, kWriting);
        requests::addToRqa({.archive = needText(archive, "archive"),
                            .files = filesOf(files, file_count),
                            .mayReplace = has(flags, ZR_OVERWRITE),
                            .dryRun = has(flags, ZR_DRY_RUN)});
    });
}

zr_code zr_rqa_index(const char* archive, zr_text** index, zr_error** error) noexcept {
    if (index) *index = nullptr;
    return guarded(error, archive, [&] { give(index, requests::rqaIndex(needText(archive, "archive"))); });
}

zr_code zr_rqa_extract(const char* archive, const char* type, const char* directory, std::uint32_t flags,
                       zr_text** path, zr_error** error) noexcept {
    if (path) *path = nullptr;
    return guarded(error, archive, [&] {
        checkFlags(flags, ZR_OVERWRITE);
        std::string made = requests::extractFromRqa(needText(archive, "archive"), needText(type, "type"),
                                                    needText(directory, "directory"), has(flags, ZR_OVERWRITE));
        if (path) give(path, std::move(made));
    });
}
