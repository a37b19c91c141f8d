#pragma once
#include <string>
#include <string_view>

namespace tcl {

/// How a script writes a word whose text needs no care.
enum class Form { bare, quoted, braced };

/// Text for a script.
struct Text {
    std::string_view bytes;
    bool isTrusted = false;  ///< it is Tcl already, of somebody who may run code here
};

/// The word of a script whose value is exactly the text, with nothing substituted, wherever braces surround the script.
/// A text that Tcl reads as one literal word in `form` is written so; any other becomes a quoted word of printable
/// ASCII, whatever `form` is: a script that is read from a file ends at 0x1A, and its encoding depends on the locale.
/// Bytes that are not UTF-8 count as Latin-1. A trusted text is written in `form` as it is.
std::string word(Text text, Form form);
inline std::string word(std::string_view untrusted, Form form) { return word(Text{untrusted}, form); }

/// Part of the name of a variable that can follow "$" without braces: other characters than letters, digits and "_"
/// become "_".
std::string namePart(std::string_view text);

}  // namespace tcl
