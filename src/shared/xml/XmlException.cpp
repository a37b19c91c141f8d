#include "xml/XmlException.h"

#include <fmt/core.h>

namespace xml {
namespace {

HEXDiagnostic diagnosticOf(const Violation& violation) {
    return {.file = violation.place.file,
            .line = violation.place.line,
            .column = violation.place.column,
            .element = violation.element,
            .text = violation.text};
}

}  // namespace

Exception::Exception(const Violation& violation)
    : HEXFileFault(diagnosticOf(violation)),
      what_(line() == 0 ? text() : fmt::format("{} (column {})", text(), column())) {}

Exception::~Exception() = default;

}  // namespace xml
