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

/// A change of an archive, as one transaction: members are staged, and `commit` writes them all at once to a new file
/// that takes the old one's place. Whoever reads, and whatever breaks off, sees the old archive or the new one.
///
/// While it lives it holds a lock, so that others who change the archive wait and none of their members is lost.
/// Members that are not changed keep their packed bytes and their order, new ones stand behind them; mode and, where
/// that is allowed, owner of the file are kept. Of a link its target is changed.
class ArchiveEdit {
public:
    enum class Digest {
        keep,   ///< an archive with a valid digest has a valid one afterwards; any other is left without
        attach  ///< it has a valid one afterwards
    };
    static constexpr std::chrono::milliseconds kPatience{10'000};

    /// Opens and locks the archive. Throws `ArchiveError` when it is no archive or may not be written,
    /// `HEXUserException` when its directory may not be, or somebody else holds the lock for longer than `patience`.
    explicit ArchiveEdit(const std::string& path, std::chrono::milliseconds patience = kPatience);
    ArchiveEdit(const ArchiveEdit&) = delete;
    ArchiveEdit& operator=(const ArchiveEdit&) = delete;

    /// As it was found.
    const Archive& archive() const { return locked_.archive(); }
    const FileStamp& stamp() const { return locked_.file().stamp(); }

    // Each throws `HEXUserException` when nothing of that name could be extracted again. The last call for a name
    // counts.

    /// Adds or replaces a member. The file is read in `commit`; it must not be the archive itself.
    void put(const std::string& member, SourceFile source);
    void put(const std::string& member, std::string bytes);
    /// False when there is no such member.
    bool remove(const std::string& member);

    /// Writes the archive, unless that would change nothing. Throws `HEXUserException`: a source or the archive was
    /// changed meanwhile, no member is left, or a fault of the disk; `ArchiveError` for damage that it meets in
    /// members whose digest must be made. Each byte of the archive then is as it was. To be called once.
    /// Gives the state in which the archive is now.
    FileStamp commit(Digest digest = Digest::keep);

private:
    struct Change {
        std::unique_ptr<const ByteSource> made;  ///< null for a file
        std::optional<SourceFile> file;
        std::optional<std::uint32_t> crc;  ///< of bytes that were hashed
        const ByteSource& bytes() const { return file ? file->bytes() : *made; }
        [[noreturn]] void refuseToRead() const;
        /// Of use while this lives.
        ZipWriter::Bytes toPack() const;
    };
    /// What a digest needs: empty when there is none to be written.
    struct Stamp {
        std::map<std::string_view, Hash> fields;  ///< of the members whose field is to be set
        std::string comment;
    };

    void stage(const std::string& member, Change change);
    bool isKept(const Member& member) const;
    Stamp makeStamp(bool isValid);
    Hash hashOf(Change& change) const;
    void write(const Stamp& stamp, const ZipWriter::Write& to) const;
    void checkSources() const;
    void checkArchive() const;
    void checkResult(int descriptor) const;
    void checkKept(const Archive& made) const;
    [[noreturn]] void refuse(const std::string& text) const;

    std::string path_;  ///< canonical
    LockedArchive locked_;
    std::map<std::string, Change> changes_;
    std::set<std::string, std::less<>> removed_;
};

}  // namespace zip
