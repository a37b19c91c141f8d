#include <cstdint>
#include <string>

#include "Check.h"
#include "kit/TclScript.h"
#include "tcl/TclWord.h"

/// In each form, the text is one word, and Tcl's own parser finds it unchanged between others, in braces in braces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TclScript tcl;
    std::string text;
    for (std::size_t i = 0; i < size; ++i) text += static_cast<char>(data[i] & 0x7F);  // other bytes may be Latin-1
    for (const tcl::Form form : {tcl::Form::bare, tcl::Form::quoted, tcl::Form::braced}) {
        const std::string script =
            "proc p {} {\nnamespace eval n {\nset x " + tcl::word(text, form) + " tail\n}\n}\nlast";
        const auto commands = tcl.commands(script);
        require(commands.size() == 4 && commands[3] == TclScript::Words{"last"}, "the braces end where they should");
        std::string found = commands[2].size() == 4 ? commands[2][2] : "";
        for (std::size_t at; (at = found.find("\xC0\x80")) != found.npos;) found.replace(at, 2, 1, '\0');
        require(commands[2].size() == 4 && found == text && commands[2][3] == "tail", "the word is the text");
    }
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const char c : tcl::word(bytes, tcl::Form::bare)) require(c >= 0x20 && c < 0x7F, "words are printable");
    return 0;
}
