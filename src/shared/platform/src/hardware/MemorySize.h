#pragma once
#include <string>

namespace hardware {

/// The number of gigabytes in a size text such as "16GB" or "16 GB"; 0 for a text without a number in front of "GB".
/// Throws std::invalid_argument ("stoi") when something else than blanks stands in front of that number, and
/// std::out_of_range for a number that is no int. Takes time in proportion to the text.
int gigabytesOf(const std::string& size);

}  // namespace hardware
