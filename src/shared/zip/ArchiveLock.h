#pragma once
#include <chrono>
#include <memory>
#include <string>

#include "zip/Archive.h"
#include "zip/FileBytes.h"

namespace zip {

/// An archive that is open for change, and a lock (flock) on it as long as this lives: of several who mean to change
/// it, here or in other processes, one does at a time. Readers need no lock, since a changed archive is a new file.
class LockedArchive {
public:
    /// Waits `patience` at most. Throws `ArchiveError` when the file cannot be opened or is not an archive,
    /// `HEXUserException` when the lock cannot be had.
    LockedArchive(const std::string& path, std::chrono::milliseconds patience);
    ~LockedArchive();
    LockedArchive(const LockedArchive&) = delete;
    LockedArchive& operator=(const LockedArchive&) = delete;

    const Archive& archive() const { return *archive_; }
    const FileBytes& file() const;

private:
    bool lock(const std::string& path) const;

    std::shared_ptr<const Archive> archive_;
};

}  // namespace zip
