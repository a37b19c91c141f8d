#pragma once
#include <string>

class HHSMHardwareDb;

/// Hardware databases, which the hardware manager owns until the process ends. Failures give "" or null.
namespace hardware {

/// Whether the archive holds a hardware definition.
bool hasDefinition(const std::string& archive);
/// Makes the database of the archive's definition and returns its name.
std::string makeDatabaseOf(const std::string& archive);
/// Makes a database, named by the manager, from the archive as a definition file.
HHSMHardwareDb* makeDatabaseFromHdf(const std::string& archive);
HHSMHardwareDb* databaseOfName(const std::string& name);

}  // namespace hardware
