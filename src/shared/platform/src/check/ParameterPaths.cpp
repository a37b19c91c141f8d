#include "check/ParameterPaths.h"

#include "text/HSTStringUtils.h"

namespace check {

std::string pathFault(const std::string& name, const std::map<std::string, std::string>& parameters) {
    for (auto dot = name.find('.'); dot != std::string::npos; dot = name.find('.', dot + 1)) {
        const auto above = parameters.find(name.substr(0, dot));
        if (above == parameters.end() || above->second.empty()) continue;
        return "the parameter \"" + HSTStringUtils::excerpt(name) + "\" lies below \"" +
               HSTStringUtils::excerpt(above->first) + "\", which has a value of its own; no document can hold both";
    }
    return {};
}

}  // namespace check
