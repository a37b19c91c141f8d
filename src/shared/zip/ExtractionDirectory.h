#pragma once
#include <string>
#include <string_view>

#include "util/Descriptor.h"
#include "zip/Archive.h"

namespace zip {

/// A directory below which members are written under their own names. A name that `memberNameFault` objects to is
/// refused; links in the way are not followed, whenever they were put there; permissions are 0644 and 0755, less what
/// the process masks, whatever the archive says. Throws `ArchiveError` for what the archive is at fault for, and
/// `HEXUserException` for the disk; no file is left half written.
class ExtractionDirectory {
public:
    /// Opens the directory, which must exist.
    explicit ExtractionDirectory(std::string path);

    /// What stands at a member's name already, when only this user can have put it there: a regular file, no link on
    /// the way, no second name. Closed when nothing stands there; anything else throws `HEXUserException`.
    util::Descriptor openOwnFile(std::string_view name) const;

    /// Writes one member, and makes the directories that its name tells.
    void extract(const Archive& archive, const Member& member, bool overwrite, OutputBudget& budget) const;

private:
    util::Descriptor openDirectory(std::string_view relativePath) const;

    std::string path_;
    util::Descriptor directory_;
};

}  // namespace zip
