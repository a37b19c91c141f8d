#pragma once
#include <optional>
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// What a name means.
struct Explanation {
    std::string name;       ///< of a finding, or the id of a message, "74-60"
    std::string severity;   ///< "error", "warning", "critical" or "information"
    std::string text = {};  ///< of a message, with {0}, {1} in place of its arguments
    std::string meaning = {}, advice = {};
    std::string file = {}, bad = {}, good = {};  ///< samples, and the name of their file; may be empty
};

/// What the names of findings (`CheckFinding::name`) and the ids of messages mean.
class ZR_API PlatformExplanation {
public:
    /// Ids are accepted as "74-60" or as sent. No value for an unknown name.
    static std::optional<Explanation> find(const std::string& name);
    /// Of every finding and every message, each once.
    static HSTVector<Explanation> all();
    /// For people: what it means, what to do, a bad and a good sample. Empty for an unknown name.
    static std::string text(const std::string& name);
    /// All names that `text` accepts.
    static HSTVector<std::string> names();
};

}  // namespace teq_platform
