#pragma once
#include <string>
#include <vector>

/// The names in a folder, except "." and "..", in no particular order. Throws `HEXUserException` if it cannot be
/// read. (The standard library's iterators terminate the process when memory runs out.)
std::vector<std::string> folderNames(const std::string& folder);
