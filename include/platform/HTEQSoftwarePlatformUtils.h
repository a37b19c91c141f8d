#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQSoftwarePlatform;
class HTEQSystemConfig;

/// Queries about a software platform by the pretty name of a configuration. A null platform has no configurations.
class ZR_API HTEQSoftwarePlatformUtils {
public:
    /// The last configuration with exactly that pretty name, or null. Unlike the platform's own operation it does not
    /// find plain names.
    static HTEQSystemConfig* getSystemConfigByPrettyName(HTEQSoftwarePlatform* platform,
                                                         const std::string& prettyName);
    /// False if there is no such configuration.
    static bool isQemuSupported(HTEQSoftwarePlatform* platform, const std::string& prettyName);
};
