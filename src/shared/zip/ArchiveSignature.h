#pragma once
#include <string>

namespace zip {

/// Whether a regular file begins as a zip archive does, whatever its name is. False if it cannot be read.
bool looksLikeArchive(const std::string& file);

}  // namespace zip
