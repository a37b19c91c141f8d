#pragma once
#include <string>
#include <string_view>

namespace services {

/// The key with its indexes as "[*]": what std::regex_replace makes of the expression "\[.*\]", whose matcher recurses
/// once for each character. A match does not extend over a line end.
std::string withAnyIndex(std::string_view key);

}  // namespace services
