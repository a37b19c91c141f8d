#include <cstdint>
#include <string_view>

#include "Check.h"
#include "emulation/PropertyScript.h"
#include "kit/TclScript.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"

/// The text as a property file of an archive: it is refused, or Tcl reads the script that it gives to its end, whose
/// words are literal but for the names of dictionaries.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TclScript tcl;
    static const HPLPlatform platform;
    json::ptree document;
    if (json::tryParse({reinterpret_cast<const char*>(data), size}, document)) return 0;
    emulation::Properties properties;
    try {
        emulation::addProperties(document, {.file = "input"}, false, properties);
    } catch (const HEXFileFault&) {
        return 0;
    }
    for (const auto& words : tcl.commands(emulation::propertyScript(platform, properties, {}).text))
        for (const std::string& word : words) {
            require(word != TclScript::kRefused, "Tcl reads the script");
            const std::string& mark = TclScript::kSubstituted;
            const bool isLiteral = !word.starts_with(mark) || word == mark + "[dict create]";
            require(isLiteral || word.find_first_of("[]\"\\ ", mark.size()) == word.npos, "nothing is substituted");
        }
    return 0;
}
