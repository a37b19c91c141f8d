#pragma once
#include <map>
#include <string>

#include "text/ZrApi.h"

/// A hardware database: the definition of a design that the manager has opened. Owned by the manager.
class ZR_API HHSMHardwareDb {
public:
    /// `rmFiles`: files of reconfigurable modules, by the instance path that each one fills.
    HHSMHardwareDb(std::string name, std::map<std::string, std::string> rmFiles)
        : name_(std::move(name)), rmFiles_(std::move(rmFiles)) {}

    const std::string& getName() const { return name_; }
    const std::map<std::string, std::string>& getRmFiles() const { return rmFiles_; }

private:
    std::string name_;
    std::map<std::string, std::string> rmFiles_;
};
