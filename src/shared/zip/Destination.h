#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace zip {

/// Writes a file at a path of the user's own choice, whose directory must exist: calls `fill` with the function that
/// takes the bytes. A file that is there is replaced when `fill` has come to its end, and stays as it was when it
/// throws; without `mayReplace` it is an error. Into a device or a pipe the bytes are written as they come. Throws
/// `HEXUserException`, and what `fill` throws.
void writeDestination(const std::string& path,
                      const std::function<void(const std::function<void(std::string_view)>& take)>& fill,
                      bool mayReplace = true);

}  // namespace zip
