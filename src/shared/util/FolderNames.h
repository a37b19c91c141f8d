#pragma once
#include <cstdint>
#include <string>
#include <vector>

/// The names in an open folder, except "." and "..", in no particular order; `shown` is its path in messages. Throws
/// `HEXUserException` if it cannot be read. (The standard library's iterators terminate the process when memory runs
/// out.) Of more than `most` names, the first ones that were read.
std::vector<std::string> folderNames(int folder, const std::string& shown, std::size_t most = SIZE_MAX);
std::vector<std::string> folderNames(const std::string& folder, std::size_t most = SIZE_MAX);
