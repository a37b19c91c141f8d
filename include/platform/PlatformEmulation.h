#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform::requests {

/// The emulation of a platform, built by the scripts of the tool's installation (docs/emulation.md).
struct Emulate {
    std::string archive;       ///< with XML metadata; not changed
    std::string name;          ///< of the installation's property file
    std::string destination;   ///< the archive with the emulation
    std::string installation;  ///< empty: the environment variable TORVANE_MORWEN
    std::string keep;         ///< directory that gets the scripts and the overlay, even if a step fails; may be empty
    bool isDynamic = false;   ///< the platform has a dynamic region
    bool mayReplace = false;  ///< overwrite the destination
    bool mayRunPrograms = false;  ///< scripts may run programs and open sockets
    bool dryRun = false;          ///< make the scripts, and neither evaluate them nor write the destination
    std::chrono::milliseconds timeLimit{0};                    ///< for the scripts; 0: none
    std::function<void(const std::string& step)> report = {};  ///< called before each step; may be empty
    std::function<void(std::string_view text)> output = {};    ///< gets what the scripts print; may be empty
};
struct EmulationMember {
    std::string name;
    std::uint64_t size = 0;
};
/// Returns the members that the archive got. The working directory of the process is a private one during the call, so
/// other threads must not use relative paths meanwhile.
ZR_API HSTVector<EmulationMember> emulate(const Emulate& request);

/// The names of the property files of an installation (as in `Emulate`), sorted.
ZR_API HSTVector<std::string> emulationNames(const std::string& installation, bool isDynamic);

}  // namespace teq_platform::requests
