#pragma once
#include <string>
#include <string_view>

namespace zip {

/// Whether the content of a file begins as that of a zip archive does.
bool beginsAsArchive(std::string_view content);
/// The same for a regular file, whatever its name is. False if it cannot be read.
bool looksLikeArchive(const std::string& file);

}  // namespace zip
