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

/// What a platform writes into its archive. It remembers the state in which the archive was read: one that somebody
/// else has changed since is not written, because the platform's document would undo what they did.
///
/// All operations throw `HEXUserException` for the environment and `HEXAlgException` for a platform that cannot be
/// written; the exception's reason, when there is one below it, is nested in it. Each byte of the archive is then as
/// it was.
class ArchiveChanges {
public:
    /// From now on the platform's archive is `file`, as it is now.
    void follow(const std::string& file);

    /// Writes the platform's document as its JSON member. Without a platform file nothing happens.
    void writeDocument(const HTEQHardwarePlatform& platform);
    /// Makes `source` the one file of a type in the platform's list, and the member in its archive, and writes the
    /// document and the digest in the same rewrite. The list is changed even when the archive cannot be.
    void archiveFile(HTEQHardwarePlatform& platform, const std::string& type, const std::string& member,
                     const std::string& source);
    /// Writes the member only. Without a platform file nothing happens.
    void addMember(const HTEQHardwarePlatform& platform, const std::string& member, const std::string& source);
    void attachDigest(const HTEQHardwarePlatform& platform);

private:
    void checkKnown(const zip::ArchiveEdit& edit) const;

    std::optional<zip::FileStamp> known_;  ///< none while there was no file
};

}  // namespace hardware
