#include "hardware/MemorySize.h"

#include <string_view>

namespace hardware {

namespace {

constexpr std::string_view kDigits = "0123456789";

/// Appends `line`, with the part from its first number to its last "GB", if any, replaced by that number.
void appendReplaced(std::string& out, std::string_view line) {
    const auto number = line.find_first_of(kDigits);
    const auto unit = line.rfind("GB");
    if (number == line.npos || unit == line.npos || unit < number) {
        out += line;
        return;
    }
    const auto end = line.find_first_not_of(kDigits, number);
    out += line.substr(0, end);
    out += line.substr(unit + 2);
}

/// Replaces each match of "([0-9]+).*GB" by its number. Hand-written because the standard library's matcher recurses
/// for each character, and sizes are untrusted input.
std::string replaceSizes(std::string_view text) {
    std::string out;
    for (;;) {
        const auto lineEnd = text.find_first_of("\n\r");
        appendReplaced(out, text.substr(0, lineEnd));
        if (lineEnd == text.npos) return out;
        out += text[lineEnd];
        text.remove_prefix(lineEnd + 1);
    }
}

}  // namespace

int gigabytesOf(const std::string& size) {
    const std::string number = replaceSizes(size);
    return number.empty() || number == size ? 0 : std::stoi(number);
}

}  // namespace hardware
