#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "zip/Archive.h"
#include "zip/ArchiveLock.h"
#include "zip/FileBytes.h"
#include "zip/Sha256.h"
#include "zip/SourceFile.h"
#include "zip/ZipWriter.h"

namespace zip {

/// A change of an archive, as one transaction: members are staged, and `commit` writes them all to a new file that
/// atomically replaces the old one. Readers see either the old archive or the new one, even if the process is killed.
///
/// It holds a lock during its lifetime, so that others who change the archive wait and no changes are lost. Unchanged
/// members keep their compressed bytes and their order, new ones follow them; mode, access control list, extended
/// attributes and, if permitted, owner of the file are kept. For a link the target is changed.
class ArchiveEdit {
public:
    enum class Digest {
        keep,    ///< a valid digest is updated; otherwise there is none afterwards
        attach,  ///< there is a valid digest afterwards; a valid one is believed for unchanged members
        renew    ///< the same, but all members are compared with it
    };
    static constexpr std::chrono::milliseconds kPatience{10'000};

    /// Opens and locks the archive. Throws `ArchiveError` if it is not an archive or not writable, and
    /// `HEXUserException` if its directory is not writable or somebody else holds the lock for longer than
    /// `patience`.
    explicit ArchiveEdit(const std::string& path, std::chrono::milliseconds patience = kPatience);
    ArchiveEdit(const ArchiveEdit&) = delete;
    ArchiveEdit& operator=(const ArchiveEdit&) = delete;

    /// As opened.
    const Archive& archive() const { return locked_.archive(); }
    const FileStamp& stamp() const { return locked_.file().stamp(); }

    // These throw `HEXUserException` for a name that could not be extracted again. The last call for a name takes
    // effect.

    /// Adds or replaces a member. The file is read in `commit`; it must not be the archive itself.
    void put(const std::string& member, SourceFile source);
    void put(const std::string& member, std::string bytes);
    /// The same for bytes that are read in `commit`; what reading them throws is passed on.
    void put(const std::string& member, std::unique_ptr<const ByteSource> bytes);
    /// False if there is no such member.
    bool remove(const std::string& member);

    /// Writes the archive, unless nothing would change, and returns its new state. Throws `HEXUserException` if a
    /// source or the archive was changed meanwhile, no member would be left, or the file system fails, and
    /// `ArchiveError` for damaged members whose digest must be computed, and for names, headers and a comment with which
    /// `verify` would refuse a digest; the archive is then unchanged. To be called
    /// once.
    FileStamp commit(Digest digest = Digest::keep);

private:
    struct Change {
        std::unique_ptr<const ByteSource> made;  ///< null for a file
        std::optional<SourceFile> file;
        std::optional<std::uint32_t> crc;  ///< of the hashed bytes
        const ByteSource& bytes() const { return file ? file->bytes() : *made; }
        [[noreturn]] void refuseToRead() const;
        /// Valid during the lifetime of this object.
        ZipWriter::Bytes toPack() const;
    };
    /// The parts of a digest; empty if none is written.
    struct Stamp {
        std::map<std::string_view, Hash> fields;  ///< of the members whose field must be set
        std::string comment;
    };

    void stage(const std::string& member, Change change);
    bool isDigestTrue() const;
    bool isKept(const Member& member) const;
    Stamp makeStamp(bool isValid);
    void checkUnread(const Member& member) const;
    Hash hashOf(Change& change) const;
    void write(const Stamp& stamp, const ZipWriter::Write& to) const;
    void checkSources() const;
    void checkArchive() const;
    void checkResult(int descriptor, bool hasStamp) const;
    void checkKept(const Archive& made) const;
    [[noreturn]] void refuse(const std::string& text) const;

    std::string path_;  ///< canonical
    LockedArchive locked_;
    std::map<std::string, Change> changes_;
    std::set<std::string, std::less<>> removed_;
};

}  // namespace zip
