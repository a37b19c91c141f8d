#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// Writes one archive from front to back: a new one, or one that is made of an old one, whose members keep their
/// packed bytes and places unless they are changed. Members that it packs have the attributes 0644 (directories
/// 0755), the time 1980-01-01 00:00 and deflate level 6, so that equal files under equal names give equal bytes.
/// Stands outside of the namespace `zip`, which the writing library's own header does not bear.
///
/// Throws `HEXUserException`, and what the functions that it is given throw.
class ZipWriter {
public:
    using Read = std::function<void(std::uint64_t offset, char* target, std::size_t count)>;
    /// The bytes of a member, or of the old archive: `read` is asked for bytes within `size` only, and throws when it
    /// cannot give them all.
    struct Bytes {
        std::uint64_t size = 0;
        Read read;
    };
    using Write = std::function<void(std::uint64_t offset, std::string_view bytes)>;

    /// `shown` stands in messages; an `old` of size 0 is none.
    ZipWriter(std::string shown, Bytes old, Write write);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    // Members are numbered as in the old archive's directory, new ones behind them. Bytes are read in `close`.

    std::uint64_t add(const std::string& member, Bytes bytes);
    /// `member` ends in "/".
    std::uint64_t addDirectory(const std::string& member);
    /// Nothing of the old member stays but its name and place.
    void replace(std::uint64_t number, Bytes bytes);
    void remove(std::uint64_t number);
    /// Sets an extra field of the member's row in the directory.
    void setField(std::uint64_t number, std::uint16_t id, std::string_view bytes);
    void setComment(const std::string& comment);
    /// Writes all. At least one member must be left.
    void close();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
