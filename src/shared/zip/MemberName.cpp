#include "zip/MemberName.h"

#include <algorithm>
#include <cstddef>

namespace zip {
namespace {

constexpr std::size_t kLongestName = 1024, kLongestPart = 255;

/// Bytes of the UTF-8 character at the front of `text`; 0 when there is none.
std::size_t characterSize(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if (first < 0x80) return 1;
    const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < size) return 0;
    for (std::size_t i = 1; i < size; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    const bool overlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
    const bool surrogate = first == 0xED && byte(1) >= 0xA0, tooHigh = first == 0xF4 && byte(1) >= 0x90;
    return overlong || surrogate || tooHigh ? 0 : size;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        if (size == 0) return false;
        text.remove_prefix(size);
    }
    return true;
}

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

std::string_view partFault(std::string_view part) {
    if (part.empty()) return "has an empty part";
    if (part == "." || part == "..") return "has a part that is '.' or '..'";
    if (part.size() > kLongestPart) return "has a part of more than 255 bytes";
    return {};
}

}  // namespace

std::string_view memberNameFault(std::string_view name, bool hasData) {
    if (name.empty()) return "is empty";
    if (name.size() > kLongestName) return "has more than 1024 bytes";
    if (name.front() == '/') return "is absolute";
    if (name.size() > 1 && name[1] == ':' && isLetter(name[0])) return "begins with a drive";
    if (name.find('\\') != std::string_view::npos) return "has a back slash";
    if (std::ranges::any_of(name, isControl)) return "has a control character";
    if (!isUtf8(name)) return "is not valid UTF-8";
    if (name.ends_with('/')) {
        if (hasData) return "is a directory's, but the member has data";
        name.remove_suffix(1);
    }
    for (std::size_t from = 0; from <= name.size();) {
        const auto end = std::min(name.find('/', from), name.size());
        if (const auto fault = partFault(name.substr(from, end - from)); !fault.empty()) return fault;
        from = end + 1;
    }
    return {};
}

std::string printableName(std::string_view name) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (isControl(c))
            text += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        else
            text += c;
    }
    return text;
}

}  // namespace zip
