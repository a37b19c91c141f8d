#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQSoftwarePlatform;
class HTEQSystemConfig;

/// Queries about the software of platforms: of the registry's (`HTEQPlatformUtils`) by unique name, of one software
/// platform by the pretty name of a configuration. A null platform has no configurations.
class ZR_API HTEQSoftwarePlatformUtils {
public:
    /// Of the active platforms with that unique name (`HTEQPlatformUtils::getPlatformsByUniqueName`), the last
    /// configuration with exactly the name `config`, or null.
    static HTEQSystemConfig* getSystemConfigurationByUniqueName(const std::string& uniqueName,
                                                                const std::string& config);
    /// The paths of that configuration's processor group, as they stand in the file. Empty if there is no such group,
    /// or the name of its operating system is not exactly `os`.
    static std::string getIncludePaths(const std::string& uniqueName, const std::string& config,
                                       const std::string& group, const std::string& os);
    static std::string getLibraryPaths(const std::string& uniqueName, const std::string& config,
                                       const std::string& group, const std::string& os);
    /// The last configuration with exactly that pretty name, or null. Unlike the platform's own operation it does not
    /// find plain names.
    static HTEQSystemConfig* getSystemConfigByPrettyName(HTEQSoftwarePlatform* platform,
                                                         const std::string& prettyName);
    /// False if there is no such configuration.
    static bool isQemuSupported(HTEQSoftwarePlatform* platform, const std::string& prettyName);
};
