#include "check/MetadataRules.h"

#include <stdexcept>

#include "hardware/MemorySize.h"
#include "text/HSTStringUtils.h"

namespace check {

std::string sizeFault(const std::string& size) {
    if (size.empty()) return "the memory has no size";
    try {
        if (hardware::gigabytesOf(size) != 0) return {};
    } catch (const std::logic_error&) {
        // Text before the number, or a number that is too large.
    }
    return "the size \"" + HSTStringUtils::excerpt(size) +
           "\" is read as 0: expected a number followed by GB, for example 16GB";
}

std::string pathFault(const std::string& name, const std::map<std::string, std::string>& parameters) {
    for (auto dot = name.find('.'); dot != std::string::npos; dot = name.find('.', dot + 1)) {
        const auto above = parameters.find(name.substr(0, dot));
        if (above == parameters.end() || above->second.empty()) continue;
        return "the parameter \"" + HSTStringUtils::excerpt(name) + "\" is a level below \"" +
               HSTStringUtils::excerpt(above->first) + "\", which has a value; no document can hold both";
    }
    return {};
}

}  // namespace check
