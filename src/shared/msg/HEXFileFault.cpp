#include "msg/HEXFileFault.h"

#include <utility>

#include "text/HSTStringUtils.h"
#include "text/Limits.h"

namespace {

const HEXDiagnostic& bounded(HEXDiagnostic& diagnostic) {
    for (std::string* const field : {&diagnostic.member, &diagnostic.element, &diagnostic.text})
        *field = HSTStringUtils::cut(std::move(*field), text::kMaxQuoted);
    return diagnostic;
}

}  // namespace

HEXFileFault::HEXFileFault(HEXDiagnostic diagnostic)
    : HEXDataException(bounded(diagnostic).format()), diagnostic_(std::move(diagnostic)) {}

HEXFileFault::~HEXFileFault() = default;
