#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQSoftwarePlatform;
class HTEQSystemConfig;

/// Questions about a software platform by a configuration's pretty name. A null platform has no configurations.
class ZR_API HTEQSoftwarePlatformUtils {
public:
    /// The last configuration whose pretty name is exactly that, or null. Unlike the platform's own look-up this one
    /// does not find plain names.
    static HTEQSystemConfig* getSystemConfigByPrettyName(HTEQSoftwarePlatform* platform,
                                                         const std::string& prettyName);
    /// False when there is no such configuration.
    static bool isQemuSupported(HTEQSoftwarePlatform* platform, const std::string& prettyName);
};
