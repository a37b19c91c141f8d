#pragma once
#include <string>

#include "emulation/Properties.h"

class HPLPlatform;

/// The Tcl procedure `emu_prop_gen`, which sets the dictionaries that the scripts of the tool's installation read.
namespace emulation {

enum class Flow { none, memorySubsystem, streaming, customScript };

struct PropertyScript {
    std::string text;
    Flow flow = Flow::none;
    std::string customScript;  ///< path, of the last flow
};

struct PropertyScriptNames {
    std::string platform;         ///< base name of the platform's file
    std::string uniqueName;       ///< of the platform
    std::string boardRepository;  ///< path; may be empty
    bool isDynamic = false;       ///< with a dynamic region
};

PropertyScript propertyScript(const HPLPlatform& platform, const Properties& properties,
                              const PropertyScriptNames& names);

/// Name of the dictionary that `memories` sets.
inline constexpr const char* kMemoryTags = "memoryTags";
/// A dictionary for each address segment of the bus interfaces whose tag is "DDR", and one of these by tag; empty
/// without such an interface.
std::string memories(const HPLPlatform& platform);

}  // namespace emulation
