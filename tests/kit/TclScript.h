#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "tcl/TclLibrary.h"
#include "util/LoadedLibrary.h"

/// Scripts as Tcl's own parser reads them, without evaluating anything.
class TclScript {
public:
    using Words = std::vector<std::string>;

    // With NUL, which no text of a script has.
    static inline const std::string kSubstituted{"SUBST\0", 6}, kRefused{"REFUSED\0", 8};

    /// The commands of the script and of the bodies in it, in order. A word that needs a substitution is its source
    /// after `kSubstituted`, a body is "BODY". A script that Tcl refuses ends with a command `kRefused`.
    std::vector<Words> commands(std::string_view script) const {
        std::vector<Words> commands;
        add(script, commands);
        return commands;
    }

private:
    void add(std::string_view script, std::vector<Words>& commands) const {
        Tcl_Parse parsed;
        while (!script.empty()) {
            if (parse_(nullptr, script.data(), static_cast<int>(script.size()), 0, &parsed) != TCL_OK) {
                commands.push_back({kRefused});
                return;
            }
            const Words words = wordsOf(parsed);
            script.remove_prefix(static_cast<std::size_t>(parsed.commandStart + parsed.commandSize - script.data()));
            free_(&parsed);
            if (words.empty()) continue;
            commands.emplace_back();
            const std::size_t index = commands.size() - 1;
            const bool mayHoldBodies = words[0] == "proc" || words[0] == "namespace" || words[0] == "if";
            for (const std::string& word : words) {
                const bool isBody = mayHoldBodies && word.find('\n') != std::string::npos;
                commands[index].push_back(isBody ? "BODY" : word);
                if (isBody) add(word, commands);
            }
        }
    }

    Words wordsOf(const Tcl_Parse& parsed) const {
        Words words;
        for (int i = 0; i < parsed.numTokens; i += parsed.tokenPtr[i].numComponents + 1) {
            const Tcl_Token& word = parsed.tokenPtr[i];
            std::string value;
            bool isLiteral = word.type != TCL_TOKEN_EXPAND_WORD;
            for (int part = i + 1; part <= i + word.numComponents; ++part) {
                const Tcl_Token& token = parsed.tokenPtr[part];
                if (token.type == TCL_TOKEN_TEXT)
                    value.append(token.start, static_cast<std::size_t>(token.size));
                else if (token.type == TCL_TOKEN_BS)
                    value += characterOf(token.start);
                else
                    isLiteral = false;
            }
            words.push_back(isLiteral ? value
                                      : kSubstituted + std::string(word.start, static_cast<std::size_t>(word.size)));
        }
        return words;
    }

    std::string characterOf(const char* backslash) const {
        char bytes[TCL_UTF_MAX + 1];
        int length = 0;
        const int size = backslash_(backslash, &length, bytes);
        return {bytes, static_cast<std::size_t>(size)};
    }

    template <class Function>
    static Function found(const char* name) {
        tclLibrary();
        Function function;
        LoadedLibrary(ZR_TCL_SONAME, "parses scripts").find(function, name);
        return function;
    }
    decltype(&Tcl_ParseCommand) parse_ = found<decltype(&Tcl_ParseCommand)>("Tcl_ParseCommand");
    decltype(&Tcl_FreeParse) free_ = found<decltype(&Tcl_FreeParse)>("Tcl_FreeParse");
    decltype(&Tcl_UtfBackslash) backslash_ = found<decltype(&Tcl_UtfBackslash)>("Tcl_UtfBackslash");
};
