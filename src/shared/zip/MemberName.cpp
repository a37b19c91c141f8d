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

/// Characters that normalisation joins with the one before them, so that two names become one: accents, Arabic marks,
/// Korean letters and Japanese marks ...
constexpr std::pair<std::string_view, std::string_view> kJoining[] = {
    {"\u0300", "\u036F"}, {"\u0653", "\u0655"}, {"\u1160", "\u11FF"}, {"\u3099", "\u309A"}};
/// ... and pairs of such characters in scripts that also use the second one alone.
constexpr std::string_view kJoined[] = {
    "\u0928\u093C",         "\u0930\u093C",         "\u0933\u093C",         "\u09C7\u09BE",
    "\u09C7\u09D7",         "\u0B47\u0B56",         "\u0B47\u0B3E",         "\u0B47\u0B57",
    "\u0B92\u0BD7",         "\u0BC6\u0BBE",         "\u0BC7\u0BBE",         "\u0BC6\u0BD7",
    "\u0C46\u0C56",         "\u0CBF\u0CD5",         "\u0CC6\u0CD5",         "\u0CC6\u0CD6",
    "\u0CC6\u0CC2",         "\u0CCA\u0CD5",         "\u0D46\u0D3E",         "\u0D47\u0D3E",
    "\u0D46\u0D57",         "\u0DD9\u0DCA",         "\u0DD9\u0DCF",         "\u0DDC\u0DCA",
    "\u0DD9\u0DDF",         "\u1025\u102E",         "\u1B05\u1B35",         "\u1B07\u1B35",
    "\u1B09\u1B35",         "\u1B0B\u1B35",         "\u1B0D\u1B35",         "\u1B11\u1B35",
    "\u1B3A\u1B35",         "\u1B3C\u1B35",         "\u1B3E\u1B35",         "\u1B3F\u1B35",
    "\u1B42\u1B35",         "\U00011099\U000110BA", "\U0001109B\U000110BA", "\U000110A5\U000110BA",
    "\U00011131\U00011127", "\U00011132\U00011127", "\U00011347\U0001133E", "\U00011347\U00011357",
    "\U000114B9\U000114BA", "\U000114B9\U000114B0", "\U000114B9\U000114BD", "\U000115B8\U000115AF",
    "\U000115B9\U000115AF", "\U00011935\U00011930"};

/// In valid UTF-8, whose characters compare like their numbers.
bool isJoinedByOthers(std::string_view name) {
    if (std::ranges::all_of(name, isAscii)) return false;
    for (std::string_view rest = name; !rest.empty();) {
        const std::string_view character = rest.substr(0, HSTStringUtils::utf8Length(rest));
        for (const auto& [first, last] : kJoining)
            if (first <= character && character <= last) return true;
        rest.remove_prefix(character.size());
    }
    return std::ranges::any_of(kJoined, [name](auto pair) { return name.find(pair) != name.npos; });
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

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

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
    return fault.empty() && isJoinedByOthers(name) ? "has a combining character, which other programs replace"
                                                   : fault;
}

}  // namespace zip
