#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// What the names of findings (`CheckFinding::name`) and the ids of messages mean.
class ZR_API PlatformExplanation {
public:
    /// For people: what it means, what to do, a bad and a good sample. An id is taken as "74-60" or as it is sent.
    /// Empty for a name that is none.
    static std::string text(const std::string& name);
    /// All that `text` knows; the ids of messages may be there more than once.
    static HSTVector<std::string> names();
};

}  // namespace teq_platform
