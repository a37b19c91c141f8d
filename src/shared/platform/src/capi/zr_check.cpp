// Checking files.
#include <memory>

#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "platform/PlatformCheck.h"
#include "platform/PlatformRequests.h"
#include "platform/zr_platform.h"

using namespace capi;
using teq_platform::CheckFinding;
using teq_platform::PlatformCheck;

struct zr_findings {
    HSTVector<CheckFinding> found;
};

zr_code zr_validate(const char* file, const zr_options* options, zr_findings** findings, zr_error** error) noexcept {
    if (findings) *findings = nullptr;
    return guarded(error, file, [&] {
        need(findings, "findings");
        const std::string path = needText(file, "file");
        const teq_platform::requests::Scope scope(readOptions(options).budget);
        *findings = std::make_unique<zr_findings>(PlatformCheck::check(path)).release();
    });
}

void zr_findings_free(zr_findings* findings) noexcept { delete findings; }

std::uint64_t zr_findings_count(const zr_findings* findings) noexcept {
    return findings ? findings->found.size() : 0;
}

static_assert(static_cast<int>(CheckFinding::Severity::warning) == ZR_WARNING);
static_assert(static_cast<int>(CheckFinding::Severity::error) == ZR_ERROR);

zr_code zr_findings_get(const zr_findings* findings, std::uint64_t index, zr_finding* finding,
                        zr_error** error) noexcept {
    return guarded(error, nullptr, [&] {
        const auto& all = need(findings, "findings").found;
        checkIndex(index, all.size());
        const CheckFinding& found = all[index];
        writeStruct(need(finding, "finding"), {.size = 0,
                                               .file = found.file.c_str(),
                                               .member = found.member.c_str(),
                                               .line = found.line,
                                               .column = found.column,
                                               .name = found.name.c_str(),
                                               .element = found.element.c_str(),
                                               .text = found.text.c_str(),
                                               .severity = static_cast<std::uint32_t>(found.severity),
                                               .reserved = 0});
    });
}

zr_code zr_explain(const char* name, zr_text** text, zr_error** error) noexcept {
    if (text) *text = nullptr;
    return guarded(error, nullptr, [&] { give(text, teq_platform::requests::explain(needText(name, "name"))); });
}

zr_code zr_schema(const char* format, zr_text** text, zr_error** error) noexcept {
    if (text) *text = nullptr;
    return guarded(error, nullptr, [&] { give(text, teq_platform::requests::schema(needText(format, "format"))); });
}
