#include "msg/HEXFileFault.h"

#include <utility>

#include "text/Cut.h"

namespace {

const HEXDiagnostic& bounded(HEXDiagnostic& diagnostic) {
    for (std::string* const field : {&diagnostic.member, &diagnostic.element, &diagnostic.text})
        *field = text::cut(std::move(*field));
    return diagnostic;
}

}  // namespace

HEXFileFault::HEXFileFault(HEXDiagnostic diagnostic)
    : HEXDataException(bounded(diagnostic).format()), diagnostic_(std::move(diagnostic)) {}

HEXFileFault::~HEXFileFault() = default;
