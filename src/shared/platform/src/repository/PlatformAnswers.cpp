#include "repository/PlatformAnswers.h"

#include <algorithm>

#include "platform/HTEQDevice.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"

namespace repository {

HTEQHardwarePlatform* hardwareOf(const HTEQPlatform* platform) {
    if (!platform) return nullptr;
    HTEQHardwarePlatform* const hardware = platform->getHardwarePlatform();
    return hardware ? hardware : platform->getDefaultRPHardwarePlatform();
}

HTEQDevice* deviceOf(const HTEQPlatform* platform) {
    HSTVector<HTEQDevice*> devices;
    if (const HTEQHardwarePlatform* hardware = hardwareOf(platform)) hardware->getDevices(devices);
    return devices.empty() ? nullptr : devices.front();
}

HSTVector<std::string> partFieldsOf(const HTEQDevice* device) {
    if (!device) return {};
    return {device->getPartArch(),      device->getPartDevice(),   device->getPartPackage(), device->getPartSpeed(),
            device->getPartTempGrade(), device->getPartStaPower(), device->getPartRevision()};
}

bool isDataCenterLike(const HTEQPlatform& platform) {
    return platform.getDesignIntentDataCenter() || platform.getDesignIntentServerManaged() ||
           platform.getDesignIntentExternalHost();
}

void addRuntimes(const HTEQPlatform& platform, const std::string& systemConfig, RuntimeNames names,
                 HSTVector<std::string>& out) {
    const bool isPretty = names == RuntimeNames::pretty;
    if (const HTEQSoftwarePlatform* software = platform.getSoftwarePlatform()) {
        if (const HTEQSystemConfig* config = software->getSystemConfigByName(systemConfig))
            isPretty ? config->getRuntimesByPrettyName(out) : config->getRuntimes(out);
        else
            isPretty ? software->getSupportedRuntimesByPrettyName(out) : software->getSupportedRuntimes(out);
    }
    if (!out.empty()) return;
    if (isDataCenterLike(platform))
        out.push_back(isPretty ? "OpenCL" : "ocl");
    else if (platform.getDesignIntentEmbedded())
        out.push_back(isPretty ? "C/C++" : "cpp");
}

void addOnce(const std::string& text, HSTVector<std::string>& out) {
    if (std::find(out.begin(), out.end(), text) == out.end()) out.push_back(text);
}

}  // namespace repository
