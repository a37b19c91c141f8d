#pragma once
#include <map>
#include <string>

#include "kit/Scratch.h"
#include "zip/HUTZip.h"

/// Packs the members into `scratch/name`; gives its path.
inline std::string packed(const Scratch& scratch, const std::string& name,
                          const std::map<std::string, std::string>& members) {
    const std::string folder = "folder of " + name;
    for (const auto& [member, content] : members) scratch.put(folder + "/" + member, content);
    std::filesystem::create_directories(std::filesystem::path(scratch / name).parent_path());
    HUTZip::compressDir(scratch / folder, scratch / name);
    std::filesystem::remove_all(scratch / folder);
    return scratch / name;
}

/// A descriptor around the content of its hardwarePlatforms element.
inline std::string descriptor(const std::string& hardware, const std::string& software = "sw.spfm") {
    return "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='v' teq:library='l' teq:name='n' "
           "teq:version='1.0'><teq:description>d</teq:description>" +
           hardware + "<teq:softwarePlatforms><teq:softwarePlatform teq:path='.' teq:name='" + software +
           "'/></teq:softwarePlatforms></teq:platform>";
}

/// An element that names a file beside the descriptor.
inline std::string fileElement(const std::string& element, const std::string& name) {
    return "<teq:" + element + " teq:path='.' teq:name='" + name + "'/>";
}

inline constexpr const char* kSoftware =
    "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='v' teq:library='l' teq:name='n' "
    "teq:version='1.0'><teq:description>d</teq:description><teq:systemConfigurations><teq:configuration "
    "teq:name='c' "
    "teq:displayName='C'><teq:description/></teq:configuration></teq:systemConfigurations></teq:platform>";
