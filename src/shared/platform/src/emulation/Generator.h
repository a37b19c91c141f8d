#pragma once
#include <string>

#include "text/HSTVector.h"

/// The steps that build the emulation of a platform, in the working directory. They throw `HEXFileFault` with the id of
/// the message that they have sent, and what `HTEQEmulationUtils` throws.
namespace emulation {

/// The scripts that the build leaves in the working directory.
inline constexpr const char* kPreLink = "dynamic_pre_sys_link.tcl";
inline constexpr const char* kPostLink = "dynamic_post_sys_link.tcl";
inline constexpr const char* kPropertyDirectory = "hw_emu_prop";
inline constexpr const char* kPropertyScript = "hw_emu_prop.tcl";
inline constexpr const char* kDriverScript = "emu_update_cfa.tcl";
inline constexpr const char* kOverlay = "overlay";

/// Throws unless it is a regular file.
void expectPlatform(const std::string& platformFile);
/// The platform's name in scripts and in the name of its hpfm file: that of the file, without the extension.
std::string platformName(const std::string& platformFile);
std::string hpfmName(const std::string& platformName);
/// Of the tool, from the environment.
std::string installation();

void writePropertyScript(const std::string& installation, const std::string& platformFile, const std::string& name,
                         bool isDynamic, const std::string& directory);
void writeDriverScript(const std::string& installation, const std::string& propertyScript, const std::string& overlay,
                       bool isDynamic);
/// Evaluates the driver script, and describes the overlay that it leaves.
void buildOverlay(const std::string& platformName, const std::string& overlay, bool isDynamic);

/// See `HTEQEmulationUtils::getAllRelativeInDir`.
HSTVector<std::string> filesBelow(const std::string& directory);
/// See `HTEQEmulationUtils::updateCfa`.
void mergeOverlay(const std::string& platformFile, const std::string& overlay);

}  // namespace emulation
