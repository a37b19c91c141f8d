#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace zip {

/// Writes a file at a path that the user chose, whose directory must exist: calls `fill` with the function that takes
/// the bytes. An existing file is replaced after `fill` returns and unchanged if it throws; without `mayReplace` it is
/// an error. To a device or a pipe, the bytes are written directly. Throws `HEXUserException`, and what `fill` throws.
void writeDestination(const std::string& path,
                      const std::function<void(const std::function<void(std::string_view)>& take)>& fill,
                      bool mayReplace = true);

}  // namespace zip
