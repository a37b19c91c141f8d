#pragma once
#include <string>
#include <vector>

/// The names in a folder, "." and ".." excepted, in no order. Throws `HEXUserException` when it cannot be read. The
/// standard library's iterators end the process when there is no memory for a name.
std::vector<std::string> folderNames(const std::string& folder);
