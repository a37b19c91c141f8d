#pragma once
#include <string>

#include "text/HSTVector.h"

class HTEQDevice;
class HTEQHardwarePlatform;
class HTEQPlatform;

/// Answers about one platform that the query utilities and the engine helper share.
namespace repository {

/// The platform's hardware, else the default partition's; null for a null platform.
HTEQHardwarePlatform* hardwareOf(const HTEQPlatform* platform);
/// The first device of the hardware, or null.
HTEQDevice* deviceOf(const HTEQPlatform* platform);
/// Architecture, device, package, speed, temperature grade, static power, revision; nothing for a null device.
HSTVector<std::string> partFieldsOf(const HTEQDevice* device);
/// Intended for a data center, server managed, or with an external host.
bool isDataCenterLike(const HTEQPlatform& platform);

enum class RuntimeNames { plain, pretty };
/// Appends the runtimes of the system configuration, else of the software platform; if `out` is then empty, the one of
/// the design intent.
void addRuntimes(const HTEQPlatform& platform, const std::string& systemConfig, RuntimeNames names,
                 HSTVector<std::string>& out);

/// Appends `text` unless it is in the list.
void addOnce(const std::string& text, HSTVector<std::string>& out);

}  // namespace repository
