#include "capi/Guard.h"

#include <fmt/core.h>

#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"

using teq_platform::Failure;
using teq_platform::FailureKind;
using teq_platform::RequestError;

/// Views only, so that the error for lack of memory needs no allocation.
struct zr_error {
    zr_code code;
    const char* text;
    const char* file;
    const char* member;
    const char* id;
    const char* name;
    const char* description;
    std::uint64_t line, column;
};

namespace capi {
namespace {

constexpr zr_error noMemory{ZR_NO_MEMORY, "out of memory", "", "", "", "", "out of memory", 0, 0};

struct OwnedError : zr_error {
    explicit OwnedError(Failure failure)
        : zr_error{}, diagnostic(std::move(failure.diagnostic)), description(diagnostic.report("")) {
        diagnostic.text = HSTStringUtils::printable(diagnostic.text);
        static_cast<zr_error&>(*this) = {static_cast<zr_code>(rowOf(failure.kind).code),
                                         diagnostic.text.c_str(),
                                         diagnostic.file.c_str(),
                                         diagnostic.member.c_str(),
                                         diagnostic.id.c_str(),
                                         diagnostic.name.c_str(),
                                         description.c_str(),
                                         diagnostic.line,
                                         diagnostic.column};
    }
    HEXDiagnostic diagnostic;
    std::string description;
};

zr_error* makeError(const char* file) noexcept {
    try {
        Failure failure = teq_platform::currentFailure(file ? file : "");
        if (failure.kind != FailureKind::noMemory) return new OwnedError(std::move(failure));
    } catch (...) {  // no memory for the error object
    }
    return const_cast<zr_error*>(&noMemory);
}

}  // namespace

void wrongUse(const std::string& text) { throw RequestError(FailureKind::wrongUse, {.text = text}); }

zr_code reportCaught(zr_error** error, const char* file) noexcept {
    zr_error* const made = makeError(file);
    const zr_code code = made->code;
    if (error)
        *error = made;
    else
        zr_error_free(made);
    return code;
}

std::string needText(const char* value, const char* name) { return &need(value, name); }

std::string needFile(const char* value, const char* name) {
    std::string file = needText(value, name);
    if (!HUTFile::exists(file)) throw HEXFileNotFoundException(file);
    return file;
}

void checkFlags(std::uint32_t flags, std::uint32_t supported) {
    if ((flags & ~supported) != 0) wrongUse(fmt::format("unsupported flags {:#x}", flags & ~supported));
}

void checkIndex(std::uint64_t index, std::uint64_t count) {
    if (index >= count) wrongUse(fmt::format("index {} is out of range ({} items)", index, count));
}

}  // namespace capi

zr_code zr_error_code(const zr_error* error) noexcept { return error ? error->code : ZR_OK; }
const char* zr_error_text(const zr_error* error) noexcept { return error ? error->text : ""; }
const char* zr_error_file(const zr_error* error) noexcept { return error ? error->file : ""; }
const char* zr_error_member(const zr_error* error) noexcept { return error ? error->member : ""; }
std::uint64_t zr_error_line(const zr_error* error) noexcept { return error ? error->line : 0; }
std::uint64_t zr_error_column(const zr_error* error) noexcept { return error ? error->column : 0; }
const char* zr_error_id(const zr_error* error) noexcept { return error ? error->id : ""; }
const char* zr_error_name(const zr_error* error) noexcept { return error ? error->name : ""; }
const char* zr_error_describe(const zr_error* error) noexcept { return error ? error->description : ""; }

void zr_error_free(zr_error* error) noexcept {
    if (error != &capi::noMemory) delete static_cast<capi::OwnedError*>(error);
}
