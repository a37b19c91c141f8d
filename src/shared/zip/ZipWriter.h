#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// Writes one archive sequentially: a new one, or one based on an old one, whose members keep their compressed bytes
/// and order unless they are changed. Members that it compresses have the attributes 0644 (directories 0755), the
/// time 1980-01-01 00:00 and deflate level 6, so that equal files under equal names give equal bytes. Not in the
/// namespace `zip`, which conflicts with libzip's header.
///
/// Throws `HEXUserException`, and what the functions passed to it throw.
class ZipWriter {
public:
    using Read = std::function<void(std::uint64_t offset, char* target, std::size_t count)>;
    /// The bytes of a member, or of the old archive: `read` is called only for bytes within `size`, and throws if it
    /// cannot provide them all.
    struct Bytes {
        std::uint64_t size = 0;
        Read read;
    };
    using Write = std::function<void(std::uint64_t offset, std::string_view bytes)>;

    /// `shown` is used in messages; an `old` of size 0 means none.
    ZipWriter(std::string shown, Bytes old, Write write);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    // Members are numbered as in the old archive's central directory, followed by new ones. Bytes are read in
    // `close`.

    std::uint64_t add(const std::string& member, Bytes bytes);
    /// `member` ends in "/".
    std::uint64_t addDirectory(const std::string& member);
    /// Only the name and the position of the old member are kept.
    void replace(std::uint64_t number, Bytes bytes);
    void remove(std::uint64_t number);
    /// Sets an extra field of the member's entry in the central directory.
    void setField(std::uint64_t number, std::uint16_t id, std::string_view bytes);
    void setComment(const std::string& comment);
    /// Writes everything. At least one member must be left.
    void close();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
