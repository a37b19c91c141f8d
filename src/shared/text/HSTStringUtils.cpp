#include "text/HSTStringUtils.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

constexpr std::string_view kBlanks = " \t\n\v\f\r";

}  // namespace

bool HSTStringUtils::iequals(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string HSTStringUtils::toLower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

std::string HSTStringUtils::toUpper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

std::string_view HSTStringUtils::trim(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> HSTStringUtils::split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    for (;;) {
        const auto end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::string HSTStringUtils::join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result += separator;
        result += pieces[i];
    }
    return result;
}

std::size_t HSTStringUtils::utf8Length(std::string_view text) {
    struct Form {
        unsigned char first, last;    // range of the leading byte
        unsigned char second, until;  // range of the byte after it
        std::size_t length;
    };
    static constexpr Form kForms[] = {
        {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
    };
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    for (const Form& form : kForms) {
        if (text.size() < form.length || byte(0) < form.first || byte(0) > form.last) continue;
        bool valid = form.length < 2 || (byte(1) >= form.second && byte(1) <= form.until);
        for (std::size_t i = 2; i < form.length; ++i) valid = valid && (byte(i) & 0xC0) == 0x80;
        return valid ? form.length : 0;
    }
    return 0;
}

std::string_view HSTStringUtils::utf8Prefix(std::string_view text, std::size_t longest) {
    if (text.size() <= longest) return text;
    for (std::size_t back = 0; back < 4 && back <= longest; ++back)
        if (const std::size_t start = longest - back; utf8Length(text.substr(start)) > back)
            return text.substr(0, start);
    return text.substr(0, longest);  // it is not UTF-8 there
}

namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

/// The value of a character of UTF-8.
std::uint32_t codeOf(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    std::uint32_t code = character.size() == 1 ? first : first & (0x7F >> character.size());
    for (const char next : character.substr(1)) code = code << 6 | (next & 0x3F);
    return code;
}

/// Whether a character would do something to a terminal or a line, or hide in it.
bool isHidden(std::uint32_t code) {
    struct Range {
        std::uint32_t first, last;
    };
    static constexpr Range kHidden[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},      {0x061C, 0x061C},
                                        {0x180E, 0x180E}, {0x200B, 0x200F}, {0x2028, 0x202E},  {0x2060, 0x206F},
                                        {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE0FFF}};
    return std::ranges::any_of(kHidden,
                               [code](const Range& range) { return range.first <= code && code <= range.last; });
}

/// `text` with what `hide` makes of each hidden character, whose code it also gets, and of each byte that is not UTF-8.
template <class Hide>
std::string withoutHidden(std::string_view text, const Hide& hide) {
    const auto isPlain = [](char c) { return c >= 0x20 && c < 0x7F; };
    std::string result;
    for (;;) {
        const auto plain = std::ranges::find_if_not(text, isPlain) - text.begin();
        result += text.substr(0, static_cast<std::size_t>(plain));
        text.remove_prefix(static_cast<std::size_t>(plain));
        if (text.empty()) return result;
        const std::size_t length = std::max<std::size_t>(1, HSTStringUtils::utf8Length(text));
        const std::string_view character = text.substr(0, length);
        const bool isText = HSTStringUtils::utf8Length(text) > 0;
        const std::uint32_t code = isText ? codeOf(character) : 0xFFFD;
        if (isText && !isHidden(code))
            result += character;
        else
            hide(result, character, code);
        text.remove_prefix(length);
    }
}

/// The same for a document, whose blanks between values remain.
template <class Escape>
std::string documentWithoutHidden(std::string_view text, const Escape& escape) {
    return withoutHidden(text, [&escape](std::string& result, std::string_view, std::uint32_t code) {
        if (code == '\n' || code == '\t')
            result += static_cast<char>(code);
        else if (code != '\r')
            escape(result, code);
    });
}

}  // namespace

std::string HSTStringUtils::printable(std::string_view text) {
    return withoutHidden(text, [](std::string& result, std::string_view bytes, std::uint32_t) {
        for (const char c : bytes) {
            const auto byte = static_cast<unsigned char>(c);
            result += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    });
}

std::string HSTStringUtils::printableJson(std::string_view json) {
    return documentWithoutHidden(json, [](std::string& result, std::uint32_t code) {
        const auto addUnit = [&result](std::uint32_t unit) {
            result += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4) result += kDigits[unit >> shift & 15];
        };
        if (code > 0xFFFF) addUnit(0xD7C0 + (code >> 10));
        addUnit(code > 0xFFFF ? 0xDC00 | (code & 0x3FF) : code);
    });
}

std::string HSTStringUtils::printableXml(std::string_view xml) {
    return documentWithoutHidden(xml, [](std::string& result, std::uint32_t code) {
        result += "&#x";
        for (int shift = 16; shift >= 0; shift -= 4) result += kDigits[code >> shift & 15];
        result += ';';
    });
}

std::string HSTStringUtils::cut(std::string_view text, std::size_t longest) {
    return std::string(utf8Prefix(text, longest)) + (text.size() > longest ? "..." : "");
}

std::string HSTStringUtils::excerpt(std::string_view text, std::size_t longest) {
    return printable(utf8Prefix(text, longest)) + (text.size() > longest ? "..." : "");
}

long long HSTStringUtils::toNumber(std::string_view text) {
    using Limits = std::numeric_limits<long long>;
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return 0;
    text.remove_prefix(first);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    long long value = 0;  // kept negative: that range is larger by one
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        const int digit = c - '0';
        if (value < (Limits::min() + digit) / 10) return negative ? Limits::min() : Limits::max();
        value = value * 10 - digit;
    }
    if (negative) return value;
    return value == Limits::min() ? Limits::max() : -value;
}
