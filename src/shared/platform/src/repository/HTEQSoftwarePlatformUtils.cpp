#include "platform/HTEQSoftwarePlatformUtils.h"

#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformUtils.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"

namespace {

/// The text of the processor group; empty if there is none of that name or it has another operating system.
std::string pathsOf(const HTEQSystemConfig* config, const std::string& group, const std::string& os,
                    const std::string& (HTEQProcessorGroup::*paths)() const) {
    const HTEQProcessorGroup* const found = config ? config->getProcGrpByName(group) : nullptr;
    return found && found->getOSName() == os ? (found->*paths)() : "";
}

}  // namespace

HTEQSystemConfig* HTEQSoftwarePlatformUtils::getSystemConfigurationByUniqueName(const std::string& uniqueName,
                                                                                const std::string& config) {
    HSTVector<HTEQPlatform*> platforms;
    HTEQPlatformUtils::getPlatformsByUniqueName(uniqueName, platforms);
    HSTVector<HTEQSystemConfig*> configs;
    for (const HTEQPlatform* platform : platforms)
        for (const HTEQSoftwarePlatform* software : platform->getSoftwarePlatforms())
            software->getSystemConfigs(configs);
    HTEQSystemConfig* found = nullptr;
    for (HTEQSystemConfig* one : configs)
        if (one->getName() == config) found = one;
    return found;
}

std::string HTEQSoftwarePlatformUtils::getIncludePaths(const std::string& uniqueName, const std::string& config,
                                                       const std::string& group, const std::string& os) {
    return pathsOf(getSystemConfigurationByUniqueName(uniqueName, config), group, os,
                   &HTEQProcessorGroup::getIncludePaths);
}

std::string HTEQSoftwarePlatformUtils::getLibraryPaths(const std::string& uniqueName, const std::string& config,
                                                       const std::string& group, const std::string& os) {
    return pathsOf(getSystemConfigurationByUniqueName(uniqueName, config), group, os,
                   &HTEQProcessorGroup::getLibraryPaths);
}

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
