#include "msg/HEXFileFault.h"

#include <utility>

#include "text/HSTStringUtils.h"

namespace {

/// Without the rest of a value of many megabytes, of which copies are made on the way to the caller. No member of an
/// archive has so long a name.
HEXDiagnostic bounded(HEXDiagnostic diagnostic) {
    constexpr std::size_t kMost = 1 << 16;
    for (std::string* const text : {&diagnostic.member, &diagnostic.element, &diagnostic.text})
        if (text->size() > kMost) *text = std::string(HSTStringUtils::utf8Prefix(*text, kMost)) + "...";
    return diagnostic;
}

}  // namespace

HEXFileFault::HEXFileFault(HEXDiagnostic diagnostic)
    : HEXDataException(diagnostic.format()), diagnostic_(bounded(std::move(diagnostic))) {}

HEXFileFault::~HEXFileFault() = default;
