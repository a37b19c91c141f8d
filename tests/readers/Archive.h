#pragma once
#include <map>
#include <string>

#include "kit/Scratch.h"
#include "kit/ZipBuilder.h"

/// Writes an archive of these members, without waiting for the disk; gives its path.
inline std::string archived(const Scratch& scratch, const std::string& name,
                            const std::map<std::string, std::string>& members) {
    builder::Zip zip;
    for (const auto& [member, content] : members) zip.entries.emplace_back(member, content);
    return scratch.put(name, zip.build());
}
