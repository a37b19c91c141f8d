#pragma once
#include <cstddef>
#include <string>
#include <string_view>

/// Files as one piece.
namespace wholefile {

/// The bytes of a regular file of at most `most` bytes, links followed. Throws `HEXUserException`, whose text names
/// the file and the reason; never waits for another process.
std::string read(const std::string& path, std::size_t most);

/// Puts `bytes` in the place of the file: a new file beside it is written, synced and renamed, so that a reader or a
/// crash sees the old bytes or the new ones. Mode and, where that is allowed, owner are kept; of a link the target is
/// replaced. A file that is not there is made with mode 0644. Throws `HEXUserException`; nothing is left behind then.
void replace(const std::string& path, std::string_view bytes);

}  // namespace wholefile
