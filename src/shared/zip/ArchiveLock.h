#pragma once
#include <chrono>
#include <memory>
#include <string>

#include "zip/Archive.h"
#include "zip/FileBytes.h"

namespace zip {

/// An archive that is open for change, with a lock (flock) on it, so that only one writer at a time changes it, in
/// this or another process. Readers need no lock, since a changed archive is a new file.
class LockedArchive {
public:
    /// Waits at most `patience`. Throws `ArchiveError` if the file cannot be opened or is not an archive,
    /// `HEXUserException` if it cannot be locked.
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
