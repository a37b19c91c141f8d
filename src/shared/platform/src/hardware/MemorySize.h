#pragma once
#include <string>

namespace hardware {

/// The number of gigabytes in a size text such as "16GB" or "16 GB"; 0 for a text without a number before "GB".
/// Throws std::invalid_argument ("stoi") if anything except blanks precedes that number, and std::out_of_range for a
/// number that is not an int. Takes linear time.
int gigabytesOf(const std::string& size);

}  // namespace hardware
