#pragma once
#include <string>

namespace emulation {

/// What the driver script refers to: paths as the script shall use them.
struct Driver {
    std::string scripts;         ///< directory of the installation's scripts
    std::string propertyScript;  ///< see PropertyScript.h
    std::string overlay;         ///< directory that the results are collected in
    std::string preLink, postLink;
    bool isDynamic = false;  ///< with a dynamic region
};

/// The Tcl script that builds an emulation platform by the scripts of the tool's installation.
std::string driverScript(const Driver& driver);

/// Directory of the emulation scripts in a tool's installation.
std::string scriptsDirectory(const std::string& installation, bool isDynamic);

}  // namespace emulation
