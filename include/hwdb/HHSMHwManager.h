#pragma once
#include <map>
#include <memory>
#include <string>

#include "text/ZrApi.h"

class HHDFHwDef;
class HHSMHardwareDb;

/// The hardware databases of the process. They exist until the process ends and are owned by the manager.
class ZR_API HHSMHwManager {
public:
    static HHSMHwManager& getHsmHwManager();
    HHSMHwManager(const HHSMHwManager&) = delete;
    HHSMHwManager& operator=(const HHSMHwManager&) = delete;

    /// Whether a hardware definition can be read from `file`.
    bool openDefFile(const std::string& file) const;

    /// A new database of the definition in `file`, named after its top module, with a number appended if a database
    /// of that name exists. Null if no definition can be read.
    HHSMHardwareDb* createHardwareDb(const std::string& file);
    /// The same with files of reconfigurable modules, by the instance path that each one fills.
    HHSMHardwareDb* createHardwareDb(const std::string& file, const std::map<std::string, std::string>& rmFiles);
    /// Null for null.
    HHSMHardwareDb* createHardwareDbFromHDF(const HHDFHwDef* definition);

    /// Null if there is no database of this name.
    HHSMHardwareDb* getHardwareDb(const std::string& name) const;

private:
    HHSMHwManager();
    ~HHSMHwManager() = delete;
    HHSMHardwareDb* create(const HHDFHwDef* definition, const std::map<std::string, std::string>& rmFiles);

    struct Databases;
    std::unique_ptr<Databases> databases_;
};
