#include "hwdb/HHSMHwManager.h"

#include <mutex>

#include "hwdb/HHDFHwDef.h"
#include "hwdb/HHDFHwDefUtils.h"
#include "hwdb/HHSMHardwareDb.h"

/// One list for all threads of the host, whose platforms are otherwise each thread's own.
struct HHSMHwManager::Databases {
    std::mutex mutex;
    std::map<std::string, HHSMHardwareDb> byName;
};

HHSMHwManager::HHSMHwManager() : databases_(std::make_unique<Databases>()) {}

HHSMHwManager& HHSMHwManager::getHsmHwManager() {
    static HHSMHwManager* const manager = new HHSMHwManager;  // outlives every static of the host
    return *manager;
}

bool HHSMHwManager::openDefFile(const std::string& file) const { return HHDFHwDefUtils::getHDF(file) != nullptr; }

HHSMHardwareDb* HHSMHwManager::createHardwareDb(const std::string& file) { return createHardwareDb(file, {}); }

HHSMHardwareDb* HHSMHwManager::createHardwareDb(const std::string& file,
                                                const std::map<std::string, std::string>& rmFiles) {
    return create(HHDFHwDefUtils::getHDF(file).get(), rmFiles);
}

HHSMHardwareDb* HHSMHwManager::createHardwareDbFromHDF(const HHDFHwDef* definition) { return create(definition, {}); }

HHSMHardwareDb* HHSMHwManager::create(const HHDFHwDef* definition,
                                      const std::map<std::string, std::string>& rmFiles) {
    if (!definition) return nullptr;
    const std::scoped_lock lock(databases_->mutex);
    std::string name = definition->getHierTopModuleName();
    for (int n = 1; databases_->byName.contains(name); ++n)
        name = definition->getHierTopModuleName() + "_" + std::to_string(n);
    return &databases_->byName.try_emplace(name, name, rmFiles).first->second;
}

HHSMHardwareDb* HHSMHwManager::getHardwareDb(const std::string& name) const {
    const std::scoped_lock lock(databases_->mutex);
    const auto found = databases_->byName.find(name);
    return found == databases_->byName.end() ? nullptr : &found->second;
}
