#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "text/ZrApi.h"

/// Text operations by ASCII rules: independent of the process's locale; bytes above 127 are left unchanged.
class ZR_API HSTStringUtils {
public:
    /// Equality that ignores the case of the 26 ASCII letters.
    static bool iequals(std::string_view a, std::string_view b);
    static std::string toLower(std::string_view text);
    static std::string toUpper(std::string_view text);
    /// `text` without blanks, tabs and line ends at both ends.
    static std::string_view trim(std::string_view text);
    /// The pieces between the separators, including empty ones: n separators give n + 1 pieces.
    static std::vector<std::string> split(std::string_view text, char separator);
    static std::string join(const std::vector<std::string>& pieces, std::string_view separator);

    /// Number of bytes of the UTF-8 character at the start of `text`: 1 to 4, or 0 if there is none (also for
    /// overlong forms, lone surrogates and an empty text).
    static std::size_t utf8Length(std::string_view text);

    /// The longest prefix of `text` that has at most `longest` bytes and does not end inside a UTF-8
    /// character.
    static std::string_view utf8Prefix(std::string_view text, std::size_t longest);

    /// The text, or such a prefix and "...".
    static std::string cut(std::string_view text, std::size_t longest);

    /// The text for display in one line: bytes that are not UTF-8, control characters, and characters that change the
    /// direction of a text or have no width are shown as "\xNN".
    static std::string printable(std::string_view text);
    /// JSON whose texts may hold any bytes, as valid UTF-8 without such characters: they become "\uNNNN", and bytes that
    /// are not UTF-8 "\ufffd". Line feeds and tabs, which no text of JSON holds, remain; carriage returns are left out.
    static std::string printableJson(std::string_view json);
    /// XML in the same way, with "&#xNNNN;".
    static std::string printableXml(std::string_view xml);
    /// What `printable` gives for such a prefix, followed by "..." if the text is longer.
    static std::string excerpt(std::string_view text, std::size_t longest = 60);

    /// The leading decimal number of `text` as strtoll reads it in base 10: leading blanks and a sign are allowed,
    /// what follows the digits is ignored, no digits give 0, and a number out of range gives the nearest value of the
    /// type.
    static long long toNumber(std::string_view text);
};
