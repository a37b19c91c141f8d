#pragma once
#include <chrono>
#include <memory>
#include <string>

#include "zip/FileBytes.h"

namespace zip {

/// Opens an archive to be changed, and holds a lock (flock) on it as long as the file is open, so that only one
/// writer at a time changes it, in this or another process. Readers need no lock, since a changed archive is a new
/// file. Waits at most `patience`. Throws `ArchiveError` if the file cannot be opened, `HEXUserException` if it
/// cannot be locked.
std::unique_ptr<FileBytes> openLocked(const std::string& path, std::chrono::milliseconds patience);

}  // namespace zip
