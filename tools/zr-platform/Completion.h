#pragma once
#include <string>
#include <vector>

/// What can stand in place of the last of `words`, the arguments so far. A line for each candidate; the last line is what
/// the shell adds: ":none", ":dirs", or ":files", which may be followed by the extensions that are meant.
std::string completionOf(const std::vector<std::string>& words);
