// Operations of the hardware platform on archives of reconfigurable modules. They load other platforms, so they are
// defined in this room and not with their class.
#include <map>
#include <set>

#include "hwdb/HHSMHwManager.h"
#include "platform/HPLCore.h"
#include "platform/HPLDevice.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/PlatformLoader.h"
#include "util/HUTFile.h"

using teq_platform::PlatformLoader;

namespace {

std::shared_ptr<HTEQPlatform> loadedFrom(const std::string& file) {
    return PlatformLoader(file, PlatformLoader::HwMetadataMode::Default).load();
}

/// The location of the file's module in the design; empty if the file has none.
std::string instancePathOf(const std::string& file) {
    const auto platform = loadedFrom(file);
    const HTEQHardwarePlatform* hardware = platform ? platform->getHardwarePlatform() : nullptr;
    const HPLDevice* device = hardware ? hardware->getDevice("fpga0") : nullptr;
    return device ? device->getReadOnlyCore().getInstPath() : "";
}

}  // namespace

std::uint32_t HTEQHardwarePlatform::getNodeIDFromLfa(const std::string& file) const {
    const auto platform = loadedFrom(file);
    const HTEQHardwarePlatform* hardware = platform ? platform->getHardwarePlatform() : nullptr;
    return hardware ? hardware->getNodeID() : 0;
}

bool HTEQHardwarePlatform::isValidRmLfa(const std::string& file) const {
    return HUTFile::isFile(file) && findReconfigPartition(getNodeIDFromLfa(file)) != nullptr;
}

bool HTEQHardwarePlatform::validateRmLfaFiles(const HSTVector<std::string>& files) const {
    std::set<const HTEQReconfigPartition*> met;
    for (const std::string& file : files) {
        if (!HUTFile::isFile(file)) return false;
        const HTEQReconfigPartition* partition = findReconfigPartition(getNodeIDFromLfa(file));
        if (!partition || !met.insert(partition).second) return false;
    }
    return true;
}

HHSMHardwareDb* HTEQHardwarePlatform::createHwDb(const HSTVector<std::string>& rmFiles) const {
    return createHwDb("", rmFiles);
}

HHSMHardwareDb* HTEQHardwarePlatform::createHwDb(const std::string& name,
                                                 const HSTVector<std::string>& rmFiles) const {
    if (!hasHardwareDef_() || !isStatic() || !validateRmLfaFiles(rmFiles)) return nullptr;
    if (!name.empty())
        if (HHSMHardwareDb* existing = getHwDb(name)) return existing;
    std::map<std::string, std::string> modules;
    for (const std::string& file : rmFiles)
        if (const std::string path = instancePathOf(file); !path.empty()) modules[path] = file;
    return HHSMHwManager::getHsmHwManager().createHardwareDb(getPlatformFile(), modules);
}
