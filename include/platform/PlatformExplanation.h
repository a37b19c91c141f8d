#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// What the names of findings (`CheckFinding::name`) and the ids of messages mean.
class ZR_API PlatformExplanation {
public:
    /// For people: what it means, what to do, a bad and a good sample. Ids are accepted as "74-60" or as sent. Empty
    /// for an unknown name.
    static std::string text(const std::string& name);
    /// All names that `text` accepts; message ids may occur more than once.
    static HSTVector<std::string> names();
};

}  // namespace teq_platform
