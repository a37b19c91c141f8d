#pragma once
#include <functional>
#include <string>

/// Calls `write` with the path to write to and whether an existing file may be replaced. The path is `destination`,
/// or, for "-", a temporary file with the extension `ext`, which is then copied to standard output.
void writeTo(const std::string& destination, bool mayReplace, const std::string& ext,
             const std::function<void(const std::string& path, bool mayReplace)>& write);
