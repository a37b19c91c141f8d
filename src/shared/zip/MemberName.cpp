#include "zip/MemberName.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "text/HSTStringUtils.h"

namespace zip {
namespace {

constexpr std::size_t kMaxName = 1024, kMaxPart = 255;

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Accents, Arabic marks, Korean letters and Japanese marks, which other programs join with the character before them, so
/// that two names become one.
constexpr std::pair<std::string_view, std::string_view> kCombining[] = {
    {"\u0300", "\u036F"}, {"\u0653", "\u0655"}, {"\u1160", "\u11FF"}, {"\u3099", "\u309A"}};

/// In valid UTF-8, whose characters compare like their numbers.
bool hasCombining(std::string_view name) {
    while (!name.empty()) {
        const std::string_view character = name.substr(0, HSTStringUtils::utf8Length(name));
        for (const auto& [first, last] : kCombining)
            if (first <= character && character <= last) return true;
        name.remove_prefix(character.size());
    }
    return false;
}

/// A file's version on systems that keep several; the number may be missing.
bool endsInVersion(std::string_view name) {
    const auto last = name.find_last_not_of("0123456789");
    return last != std::string_view::npos && name[last] == ';';
}

std::string_view partFault(std::string_view part) {
    if (part.empty()) return "has an empty part";
    if (part == "." || part == "..") return "has a part that is '.' or '..'";
    if (part.find_first_not_of(". ") == part.npos) return "has a part of dots and blanks only";
    if (part.starts_with("..") || part.ends_with("..")) return "has a part that begins or ends with '..'";
    if (part.size() > kMaxPart) return "has a part of more than 255 bytes";
    return {};
}

}  // namespace

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t size = HSTStringUtils::utf8Length(text);
        if (size == 0) return false;
        text.remove_prefix(size);
    }
    return true;
}

std::string_view memberPathFault(std::string_view name, bool hasData) {
    if (name.empty()) return "is empty";
    if (name.size() > kMaxName) return "has more than 1024 bytes";
    if (name.front() == '/') return "is absolute";
    if (name.size() > 1 && name[1] == ':' && isLetter(name[0])) return "begins with a drive";
    if (name.find('\\') != std::string_view::npos) return "has a backslash";
    if (std::ranges::any_of(name, isControl)) return "has a control character";
    if (endsInVersion(name)) return "ends in ';' and a number, which other programs remove";
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

std::string_view memberNameFault(std::string_view name, bool hasData) {
    const std::string_view fault = memberPathFault(name, hasData);
    return fault.empty() && !isUtf8(name) ? "is not valid UTF-8" : fault;
}

std::string_view digestNameFault(std::string_view name, bool hasData) {
    const std::string_view fault = memberNameFault(name, hasData);
    return fault.empty() && hasCombining(name) ? "has a combining character, which other programs replace" : fault;
}

}  // namespace zip
