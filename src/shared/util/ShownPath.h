#pragma once
#include <string>

/// Paths as a user who named `file` would write them: relative to the working directory if `file` is, without "." and
/// without ".." where that leads to the same file.
namespace util {

/// `path`, which is absolute or relative to the working directory, and belongs to `file`.
std::string shownPath(const std::string& path, const std::string& file);

}  // namespace util
