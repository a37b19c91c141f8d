#include "hwdb/HHSMHwManager.h"

#include <atomic>

#include "hwdb/HHDFHwDef.h"
#include "hwdb/HHDFHwDefUtils.h"
#include "hwdb/HHSMHardwareDb.h"

/// One list for all threads of the host; platforms otherwise belong to one thread. It only grows at its front and is
/// not guarded by a lock: a fork in one thread must not leave the child with a lock that is never released.
struct HHSMHwManager::Databases {
    struct Node {
        std::string name;
        HHSMHardwareDb database;
        Node* next;
    };
    std::atomic<Node*> first{nullptr};

    static HHSMHardwareDb* find(Node* from, const std::string& name) {
        for (Node* node = from; node; node = node->next)
            if (node->name == name) return &node->database;
        return nullptr;
    }
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
    const std::string top = definition->getHierTopModuleName();
    Databases::Node* present = databases_->first;
    for (;;) {
        std::string name = top;
        for (int n = 1; Databases::find(present, name); ++n) name = top + "_" + std::to_string(n);
        auto node = std::make_unique<Databases::Node>(Databases::Node{name, HHSMHardwareDb(name, rmFiles), present});
        if (databases_->first.compare_exchange_strong(present, node.get())) return &node.release()->database;
    }
}

HHSMHardwareDb* HHSMHwManager::getHardwareDb(const std::string& name) const {
    return Databases::find(databases_->first, name);
}
