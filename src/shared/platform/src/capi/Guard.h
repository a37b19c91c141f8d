#pragma once
#include <string>

#include "msg/Silence.h"
#include "platform/RequestFailure.h"
#include "platform/zr_platform.h"
#include "util/SystemFault.h"

namespace capi {

[[noreturn]] void wrongUse(const std::string& text);

/// Makes the error for the exception being handled. `file` is the file of the call, or null.
zr_code reportCaught(zr_error** error, const char* file) noexcept;

/// Runs a call's body. Exceptions become an error object, and nothing that readers print reaches standard output.
template <class Body>
zr_code guarded(zr_error** error, const char* file, Body body) noexcept {
    if (error) *error = nullptr;
    try {
        const msg::Silence silence;
        util::forgetSystemFaults();
        body();
        return ZR_OK;
    } catch (...) {
        return reportCaught(error, file);
    }
}

/// The argument `value`, named `name`, which must not be null.
template <class T>
T& need(T* value, const char* name) {
    if (!value) wrongUse(std::string(name) + " is NULL");
    return *value;
}
std::string needText(const char* value, const char* name);
/// The file argument `value`, which must exist.
std::string needFile(const char* value, const char* name);
/// Refuses flags that the call does not support.
void checkFlags(std::uint32_t flags, std::uint32_t supported);
void checkIndex(std::uint64_t index, std::uint64_t count);

}  // namespace capi
