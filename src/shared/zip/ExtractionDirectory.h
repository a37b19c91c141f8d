#pragma once
#include <string>
#include <string_view>

#include "util/Descriptor.h"
#include "zip/Archive.h"

namespace zip {

/// A directory into which members are extracted under their own names. A name that `memberNameFault` rejects is
/// refused; links on the path are never followed; permissions are 0644 and 0755 without the bits of the umask,
/// whatever the archive says. Throws `ArchiveError` for errors in the archive, and `HEXUserException` for errors of
/// the file system; no file is left half written.
class ExtractionDirectory {
public:
    /// Opens the directory, which must exist.
    explicit ExtractionDirectory(std::string path);

    /// Opens an existing file with a member's name, if only this user can have made it: a regular file, without links
    /// on the path and without a second name. Closed if there is no file; throws `HEXUserException` for anything
    /// else.
    util::Descriptor openOwnFile(std::string_view name) const;

    /// Extracts one member, and makes the directories in its name.
    void extract(const Archive& archive, const Member& member, bool overwrite, OutputBudget& budget) const;
    /// Extracts the members whose names begin with `prefix`; false if there are none.
    bool extractAll(const Archive& archive, std::string_view prefix, bool overwrite, OutputBudget& budget) const;

private:
    util::Descriptor openDirectory(std::string_view relativePath) const;

    std::string path_;
    util::Descriptor directory_;
};

}  // namespace zip
