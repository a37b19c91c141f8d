#pragma once
#include <string>

/// Names of the metadata members of an archive, from the archive's extension without its dot ("lfa"). An empty
/// extension, or an empty name, gives an empty name.
namespace hardware {

inline constexpr char kHwEmuDir[] = "hw_emu";

inline std::string jsonName(const std::string& ext) { return ext.empty() ? ext : ext + ".json"; }
inline std::string xmlName(const std::string& ext) { return ext.empty() ? ext : ext + ".xml"; }
inline std::string belowHwEmu(const std::string& name) { return name.empty() ? name : kHwEmuDir + ("/" + name); }

}  // namespace hardware
