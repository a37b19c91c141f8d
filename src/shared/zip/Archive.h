#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "zip/ArchiveError.h"
#include "zip/ByteSource.h"
#include "zip/Directory.h"
#include "zip/Member.h"
#include "zip/OutputBudget.h"

namespace zip {

/// An archive opened for strict reading: nothing in it is used before it has been checked against everything else in
/// the archive. What an entry states about its member's data is checked when the data are read. All failures are
/// `ArchiveError`.
class Archive {
public:
    /// The default limit for members that are read whole.
    static constexpr std::uint64_t kMetadataBound = 32UL * 1024 * 1024;
    using Sink = std::function<void(std::string_view piece)>;

    /// Opens the file at `path`, which must be a regular file.
    explicit Archive(const std::string& path);
    /// Reads from `bytes`; `name` is used in messages.
    Archive(std::unique_ptr<ByteSource> bytes, std::string name);

    const std::string& name() const { return name_; }
    const std::string& comment() const { return directory_.comment(); }
    std::span<const Member> members() const { return directory_.members(); }
    /// Null if there is no such member. Names are compared byte for byte.
    const Member* find(std::string_view name) const { return directory_.find(name); }
    /// What the archive is read from.
    const ByteSource& bytes() const { return *bytes_; }

    /// The whole data of a member of at most `bound` bytes. Directories have none.
    std::string read(const Member& member, std::uint64_t bound = kMetadataBound) const;
    /// Passes the data to `sink` in pieces, in order and in constant memory. If it throws, the pieces passed so far
    /// are not valid data.
    void copyTo(const Member& member, const Sink& sink, OutputBudget& budget) const;
    /// The same for members of any kind, including directories, to examine their bytes.
    void unpack(const Member& member, const Sink& sink, OutputBudget& budget) const;
    /// The most bytes of members that are verified, hashed or extracted together: real archives are far below.
    std::uint64_t mostUnpacked() const { return (128UL << 20) + 100 * bytes_->size(); }
    /// Throws if all members together have more.
    void checkUnpackedSize() const;
    /// Throws unless the member's local header and data descriptor agree with its entry.
    void checkHeader(const Member& member) const;

private:
    using Fault = ArchiveError::Fault;
    [[noreturn]] void refuse(const Member& member, const std::string& text, Fault fault = Fault::other) const;
    void checkIsFile(const Member& member) const;
    std::string unpackWhole(const Member& member) const;
    void unpackInPieces(const Member& member, const Sink& sink, OutputBudget& budget) const;
    void checkCrc(const Member& member, std::uint32_t crc) const;

    std::string name_;
    std::unique_ptr<ByteSource> bytes_;
    Directory directory_;
};

}  // namespace zip
