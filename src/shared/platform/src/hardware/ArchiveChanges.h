#pragma once
#include <optional>
#include <string>

#include "zip/FileBytes.h"

class HTEQHardwarePlatform;

namespace zip {
class ArchiveEdit;
class SourceFile;
}  // namespace zip

namespace hardware {

/// Writes a platform into its archive. It remembers the state in which the archive was read: if somebody else has
/// changed the archive since, it is not written, because the platform's document would undo that change.
///
/// All operations throw `HEXUserException` for the environment and `HEXAlgException` for a platform that cannot be
/// written; an underlying exception is nested in it. The archive is then unchanged.
class ArchiveChanges {
public:
    /// Makes `file`, in its current state, the platform's archive.
    void follow(const std::string& file);

    /// Writes the platform's document as its JSON member. Does nothing without a platform file.
    void writeDocument(const HTEQHardwarePlatform& platform);
    /// Makes `source` the one file of a type in the platform's list, and the member in its archive, and writes the
    /// document and the digest in the same rewrite. The list is changed even if the archive cannot be.
    void archiveFile(HTEQHardwarePlatform& platform, const std::string& type, const std::string& member,
                     const std::string& source);
    /// Writes only the member. Does nothing without a platform file.
    void addMember(const HTEQHardwarePlatform& platform, const std::string& member, const std::string& source);
    void attachDigest(const HTEQHardwarePlatform& platform);

private:
    void checkKnown(const zip::ArchiveEdit& edit) const;

    std::optional<zip::FileStamp> known_;  ///< no value if there was no file
};

}  // namespace hardware
