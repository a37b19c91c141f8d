#include "platform/HTEQSoftwarePlatformUtils.h"

#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"

HTEQSystemConfig* HTEQSoftwarePlatformUtils::getSystemConfigByPrettyName(HTEQSoftwarePlatform* platform,
                                                                         const std::string& prettyName) {
    HSTVector<HTEQSystemConfig*> configs;
    if (platform) platform->getSystemConfigs(configs);
    HTEQSystemConfig* found = nullptr;
    for (HTEQSystemConfig* config : configs)
        if (config->getPrettyName() == prettyName) found = config;
    return found;
}

bool HTEQSoftwarePlatformUtils::isQemuSupported(HTEQSoftwarePlatform* platform, const std::string& prettyName) {
    const HTEQSystemConfig* const config = getSystemConfigByPrettyName(platform, prettyName);
    return config && config->isQemuSupported();
}
