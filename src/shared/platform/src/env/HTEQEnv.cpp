#include "platform/HTEQEnv.h"

#include "env/ProductName.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"

bool HTEQEnv::isRunningAsHollinUnitTest() {
    static const bool isSet = HUTEnv::get("HOLLIN_UNIT_TEST").has_value();
    return isSet;
}

std::string HTEQEnv::getProductName() {
    static const std::string name = productNameOf(HUTEnv::getJUNAppRoot(), isRunningAsHollinUnitTest());
    return name;
}

std::string productNameOf(std::string_view appRoot, bool isUnitTest) {
    const std::string root = HSTStringUtils::toLower(appRoot);
    std::string_view best = isUnitTest ? "selbrook" : "unknown";
    std::size_t bestAt = 0;
    for (const std::string_view name : {"selbrook", "teq", "delmar", "morwen"}) {
        if (isUnitTest && name == "teq") continue;
        const auto at = root.rfind(name);
        if (at == std::string::npos || at < bestAt) continue;
        best = name;
        bestAt = at;
    }
    return std::string(best);
}
