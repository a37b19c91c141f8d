#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq::platform {

/// One segment of a path: a key, with an index if the segment ends in one.
struct PathToken {
    std::string name;  ///< key among the children of the current node; empty for that node itself
    bool hasIndex = false;
    std::int32_t index = 0;

    bool operator==(const PathToken&) const = default;
};

/// The segments of a path, in its order; never empty. The markers "[]" and "[*]" must have been removed.
///
/// An index has at most six characters between "[" and "]" at the end of the segment, and is read as a decimal number
/// (0 if it is none). A longer one is dropped; anything else with brackets is part of the name.
ZR_API HSTVector<PathToken> scanJsonPath(std::string_view path);

/// The path without its markers "[]" and "[*]", which say that the caller means a collection and select nothing.
/// What deleting them brings together is left alone.
ZR_API std::string withoutMarkers(std::string_view path);

}  // namespace teq::platform
