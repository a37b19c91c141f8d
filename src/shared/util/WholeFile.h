#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "msg/HEXAll.h"

/// Reading and writing whole files.
namespace wholefile {

/// A fault of the file, not of the system.
class TooLarge : public HEXUserException {
    using HEXUserException::HEXUserException;
};

/// The bytes of a regular file of at most `most` bytes, else `TooLarge`; links are followed. Throws
/// `HEXUserException`, whose text names the file and the reason; never blocks on another process.
std::string read(const std::string& path, std::size_t most);
/// The same for untrusted files that a request may name often: their bytes count on its budget.
std::string readCounted(const std::string& path, std::size_t most);

/// Replaces the contents of the file atomically: a new file is written, synced and renamed, so that a reader or a
/// crash sees either the old bytes or the new ones. Mode, access control list, extended attributes and, if permitted, owner
/// are kept; for a link the target is replaced, and what is not a regular file is refused. A missing file is made with mode 0644. On failure throws `HEXUserException` and leaves nothing.
void replace(const std::string& path, std::string_view bytes);

}  // namespace wholefile
