#pragma once
#include <string>
#include <vector>

namespace text {

/// "; nearest: ..." with up to three of `known` that are similar, ignoring case; empty if none is.
std::string nearest(const std::string& name, const std::vector<std::string>& known);

}  // namespace text
