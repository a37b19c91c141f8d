#include "hardware/HardwareDatabase.h"

#include "hardware/PlatformFiles.h"
#include "hwdb/HHDFHwDefUtils.h"
#include "hwdb/HHSMHardwareDb.h"
#include "hwdb/HHSMHwManager.h"

namespace hardware {

bool hasDefinition(const std::string& archive) {
    return hasMember(archive, "hwdef.xml") || hasMember(archive, "sysdef.xml");
}

std::string makeDatabaseOf(const std::string& archive) {
    const HHSMHardwareDb* database = HHSMHwManager::getHsmHwManager().createHardwareDb(archive);
    return database ? database->getName() : std::string();
}

HHSMHardwareDb* makeDatabaseFromHdf(const std::string& archive) {
    const auto definition = HHDFHwDefUtils::getHDF(archive);
    return HHSMHwManager::getHsmHwManager().createHardwareDbFromHDF(definition.get());
}

HHSMHardwareDb* databaseOfName(const std::string& name) {
    return HHSMHwManager::getHsmHwManager().getHardwareDb(name);
}

}  // namespace hardware
