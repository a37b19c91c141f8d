#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace zip {

/// Writes a file at a path that the user chose, whose directory must exist: calls `fill` with the function that takes
/// the bytes. An existing file is replaced after `fill` returns and unchanged if it throws; without `mayReplace` it is
/// an error. A link is not followed: it is treated as a file. To a device, a pipe or one of the process's own
/// descriptors (/dev/stdout), the bytes are written directly. Throws `HEXUserException`, and what `fill` throws.
void writeDestination(const std::string& path,
                      const std::function<void(const std::function<void(std::string_view)>& take)>& fill,
                      bool mayReplace = true);
struct DestinationText {
    std::string path;
    std::string_view bytes;
};
/// Writes two files, or neither if one of them cannot be written; what a device or a pipe got cannot be taken back.
void writeDestinations(const DestinationText& first, const DestinationText& second, bool mayReplace);
/// Writes a copy of the file `from`.
void copyToDestination(const std::string& from, const std::string& path, bool mayReplace = true);
/// The same for a name in an open directory; `path` is its path in messages.
void copyIntoDirectory(const std::string& from, int directory, const std::string& path);
/// Moves the file `from` to `path`. It is copied if it cannot be renamed: to another file system, or to a device or pipe.
void moveToDestination(const std::string& from, const std::string& path, bool mayReplace);

/// Whether bytes would be written directly.
bool isStream(const std::string& path);

}  // namespace zip
