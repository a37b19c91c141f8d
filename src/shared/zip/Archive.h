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

/// An archive that was opened to be read, and is strict about it: nothing in it is used before it has been found to
/// agree with all that the archive says elsewhere. What a member's row says of its data is checked when the data are
/// read. All failures are `ArchiveError`.
class Archive {
public:
    /// The largest member that is read whole unless the caller says otherwise.
    static constexpr std::uint64_t kMetadataBound = 32UL * 1024 * 1024;
    using Sink = std::function<void(std::string_view piece)>;

    /// Opens the file at `path`, which must be a regular one.
    explicit Archive(const std::string& path);
    /// Reads from `bytes`; `name` stands in messages.
    Archive(std::unique_ptr<ByteSource> bytes, std::string name);

    const std::string& name() const { return name_; }
    const std::string& comment() const { return directory_.comment(); }
    std::span<const Member> members() const { return directory_.members(); }
    /// Null when there is no such member. Names are compared byte for byte.
    const Member* find(std::string_view name) const { return directory_.find(name); }
    /// What the archive is read from.
    const ByteSource& bytes() const { return *bytes_; }

    /// The whole data of a member of at most `bound` bytes. Directories and links have none.
    std::string read(const Member& member, std::uint64_t bound = kMetadataBound) const;
    /// Hands the data to `sink` in pieces, in order; memory does not grow with the member. When it throws, the pieces
    /// so far were no sound member.
    void copyTo(const Member& member, const Sink& sink, OutputBudget& budget) const;
    /// The same for members of any kind, directories and links too: for those who only look at the bytes.
    void unpack(const Member& member, const Sink& sink, OutputBudget& budget) const;
    /// Whether the member's local header agrees with the directory; throws when it does not.
    void checkHeader(const Member& member) const;

private:
    using Fault = ArchiveError::Fault;
    [[noreturn]] void refuse(const Member& member, const std::string& text, Fault fault = Fault::other) const;
    void checkKind(const Member& member) const;
    std::string unpackWhole(const Member& member) const;
    void unpackInPieces(const Member& member, const Sink& sink, OutputBudget& budget) const;
    void checkCrc(const Member& member, std::uint32_t crc) const;

    std::string name_;
    std::unique_ptr<ByteSource> bytes_;
    Directory directory_;
};

}  // namespace zip
