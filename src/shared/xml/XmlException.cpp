#include "xml/XmlException.h"

#include <fmt/core.h>

#include "text/HSTStringUtils.h"

namespace xml {

Exception::Exception(Violation violation)
    : violation_(std::move(violation)),
      what_(line() == 0 ? text() : fmt::format("{} (column {})", text(), column())) {}

Exception::~Exception() = default;

std::string Exception::describe() const {
    const Place& at = place();
    if (at.line == 0) return fmt::format("{}: {}", at.file, text());
    return fmt::format("{}:{}:{}: {}", at.file, at.line, at.column, text());
}

}  // namespace xml
