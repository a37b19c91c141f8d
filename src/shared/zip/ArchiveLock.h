#pragma once
#include <chrono>
#include <memory>
#include <string>

#include "zip/FileBytes.h"

namespace zip {

/// Opens an archive to be changed, and holds a lock (flock) on it as long as the bytes are open: of several who mean
/// to change it, here or in other processes, one does at a time. Readers need no lock, since a changed archive is a
/// new file. Waits `patience` at most. Throws `ArchiveError` when the file cannot be opened, `HEXUserException` when
/// the lock cannot be had.
std::unique_ptr<FileBytes> openLocked(const std::string& path, std::chrono::milliseconds patience);

}  // namespace zip
