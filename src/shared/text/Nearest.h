#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace text {

/// "; nearest: ..." with up to three of `known` that are similar, ignoring case; empty if none is.
std::string nearest(const std::string& name, const std::vector<std::string>& known);

/// Whether one of two names can be a misspelling of the other: at most one letter in three and two in all are wrong,
/// ignoring case. Two letters that are exchanged count once.
bool isSlip(std::string_view a, std::string_view b);

}  // namespace text
