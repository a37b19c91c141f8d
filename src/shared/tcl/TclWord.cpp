#include "tcl/TclWord.h"

#include <algorithm>
#include <utility>

#include "text/HSTStringUtils.h"

namespace tcl {
namespace {

bool isPlain(char c) { return c >= 0x20 && c < 0x7F; }

/// Whether braces around the text end where they should: Tcl counts braces, except after a backslash.
bool isBalanced(std::string_view text) {
    int depth = 0;
    bool isEscaped = false;
    for (const char c : text) {
        if (std::exchange(isEscaped, !isEscaped && c == '\\')) continue;
        if (c == '{') ++depth;
        if (c == '}' && --depth < 0) return false;
    }
    return depth == 0 && !isEscaped;
}

/// Whether Tcl reads the text in this form as one word and without substitution.
bool isLiteral(std::string_view text, Form form) {
    if (!std::ranges::all_of(text, isPlain) || !isBalanced(text)) return false;
    switch (form) {
        case Form::bare:
            return !text.empty() && text[0] != '"' && text[0] != '{' && text.find_first_of(" ;[$\\") == text.npos;
        case Form::quoted: return text.find_first_of("\"[$\\") == text.npos;
        case Form::braced: return true;
    }
    return false;
}

std::string inForm(std::string_view text, Form form) {
    switch (form) {
        case Form::bare: break;
        case Form::quoted: return '"' + std::string(text) + '"';
        case Form::braced: return '{' + std::string(text) + '}';
    }
    return std::string(text);
}

/// The first character, which is removed. A byte that begins none counts as Latin-1.
char32_t takeCharacter(std::string_view& text) {
    const std::size_t length = std::max<std::size_t>(HSTStringUtils::utf8Length(text), 1);
    const auto first = static_cast<unsigned char>(text[0]);
    char32_t code = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
    text.remove_prefix(length);
    return code;
}

/// A backslash, "u" and four digits: most of a long text may need it.
void addUnit(std::string& word, char32_t unit) {
    constexpr char kDigits[] = "0123456789abcdef";
    word += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) word += kDigits[unit >> shift & 15];
}

std::string escaped(std::string_view text) {
    constexpr std::string_view kSpecial = "\"[]$\\{};";
    std::string word = "\"";
    while (!text.empty()) {
        const char32_t code = takeCharacter(text);
        if (code > 0xFFFF) {  // as the two halves that stand for it in UTF-16
            addUnit(word, 0xD7C0 + (code >> 10));
            addUnit(word, 0xDC00 + (code & 0x3FF));
        } else if (code < 0x20 || code >= 0x7F) {
            addUnit(word, code);
        } else {
            if (kSpecial.find(static_cast<char>(code)) != kSpecial.npos) word += '\\';
            word += static_cast<char>(code);
        }
    }
    return word + '"';
}

}  // namespace

std::string word(Text text, Form form) {
    return text.isTrusted || isLiteral(text.bytes, form) ? inForm(text.bytes, form) : escaped(text.bytes);
}

std::string namePart(std::string_view text) {
    std::string name(text);
    std::ranges::replace_if(
        name, [](char c) { return !(c >= '0' && c <= '9') && !(c >= 'A' && c <= 'Z') && !(c >= 'a' && c <= 'z'); },
        '_');
    return name;
}

}  // namespace tcl
