#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform::requests {

/// A request for a small but complete platform to start from.
struct NewPlatform {
    std::string folder;  ///< must not exist, or be empty; its last part is the platform's name
    /// "card": a data-centre card; "embedded": a board with its own processor; "software": a software file alone.
    std::string kind = "card";
    bool mayReplace = false;  ///< the folder may have files; those of the same names are replaced
};
/// Makes a small complete platform as a folder of commented text, all of it or nothing. Returns the paths of its files,
/// relative to the folder. Failures: `wrongUse` for an unknown kind and a name with other characters than letters,
/// digits, "_" and "-"; `refused` for a folder that is not empty.
ZR_API HSTVector<std::string> newPlatform(const NewPlatform& request);

}  // namespace teq_platform::requests
