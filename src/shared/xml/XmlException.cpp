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

std::string shown(std::string_view text) {
    constexpr std::size_t kLongest = 60;
    const bool cut = text.size() > kLongest;
    if (cut) {
        std::size_t end = kLongest;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;  // not inside a character
        text = text.substr(0, end);
    }
    std::string result = HSTStringUtils::printable(text);
    if (cut) result += "...";
    return result;
}

}  // namespace xml
