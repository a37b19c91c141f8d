#pragma once
#include <libdeflate.h>
#include <zlib.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Builds archives byte by byte, so that each of their fields can be made to lie.
namespace builder {

inline std::string le(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i));
    return text;
}
inline std::string extra(std::uint16_t id, const std::string& bytes) {
    return le(id, 2) + le(bytes.size(), 2) + bytes;
}

inline std::string deflated(const std::string& data) {
    std::string packed(data.size() + data.size() / 100 + 64, '\0');
    z_stream stream{};
    ::deflateInit2(&stream, 6, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    ::deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    ::deflateEnd(&stream);
    return packed;
}

/// What both the local header and the central directory entry contain.
struct Header {
    std::string name, extra;
    std::uint16_t version = 20, flags = 0, method = 0;
    std::uint32_t crc = 0;
    std::uint64_t packedSize = 0, size = 0;
    std::string bytes() const {
        return le(version, 2) + le(flags, 2) + le(method, 2) + le(0, 2) + le(0x21, 2) + le(crc, 4) +
               le(packedSize, 4) + le(size, 4) + le(name.size(), 2) + le(extra.size(), 2);
    }
};

struct Entry {
    Header local, central;
    std::string packed, descriptor, comment;
    std::uint32_t mode = 0100644;
    std::uint16_t disk = 0, madeBy = 0x031E, dos = 0;  ///< the system is the upper byte; the lower 16 attributes
    std::optional<std::uint64_t> offset;

    explicit Entry(const std::string& name, const std::string& data = "", bool isDeflated = false) {
        if (name.ends_with('/')) mode = 040755;
        packed = isDeflated ? deflated(data) : data;
        local.name = name;
        local.method = isDeflated ? 8 : 0;
        local.crc = libdeflate_crc32(0, data.data(), data.size());
        local.packedSize = packed.size();
        local.size = data.size();
        central = local;
    }
    /// Sets a field in both places.
    template <class Value>
    Entry& both(Value Header::*field, std::type_identity_t<Value> value) {
        local.*field = central.*field = value;
        return *this;
    }
};

struct Zip {
    std::vector<Entry> entries;
    std::string before, beforeDirectory, afterDirectory, comment, after;
    int count = 0, offset = 0, size = 0;  ///< added to the true values of the end record
    std::uint16_t disk = 0;
    bool isZip64 = false;
    int count64 = 0, locator = 0, record64Size = 0;  ///< added to the true values of the zip64 records
    bool hasMarks64 = true;                          ///< the end record holds marks instead of the values
    std::optional<std::uint16_t> commentSize;

    std::string build() const {
        std::string out = before, directory;
        for (const Entry& e : entries) {
            directory += "PK\1\2" + le(e.madeBy, 2) + e.central.bytes() + le(e.comment.size(), 2) + le(e.disk, 2) +
                         le(0, 2) + le(e.dos, 2) + le(e.mode, 2) + le(e.offset.value_or(out.size()), 4) +
                         e.central.name + e.central.extra + e.comment;
            out += "PK\3\4" + e.local.bytes() + e.local.name + e.local.extra + e.packed + e.descriptor;
        }
        out += beforeDirectory;
        const auto at = static_cast<std::uint64_t>(static_cast<std::int64_t>(out.size()) + offset);
        const auto bytes = static_cast<std::uint64_t>(static_cast<std::int64_t>(directory.size()) + size);
        const auto members = static_cast<std::uint64_t>(static_cast<std::int64_t>(entries.size()) + count);
        out += directory + afterDirectory;
        if (isZip64) {
            const auto all = static_cast<std::uint64_t>(static_cast<std::int64_t>(members) + count64);
            const std::uint64_t recordAt = out.size();
            out += "PK\6\6" + le(static_cast<std::uint64_t>(44 + record64Size), 8) + le(45, 2) + le(45, 2) +
                   le(0, 4) + le(0, 4) + le(all, 8) + le(all, 8) + le(bytes, 8) + le(at, 8);
            out += "PK\6\7" + le(0, 4) + le(recordAt + static_cast<std::uint64_t>(locator), 8) + le(1, 4);
        }
        const bool marks = isZip64 && hasMarks64;
        out += "PK\5\6" + le(disk, 2) + le(disk, 2) + le(marks ? 0xFFFF : members, 2) +
               le(marks ? 0xFFFF : members, 2) + le(marks ? 0xFFFFFFFF : bytes, 4) + le(marks ? 0xFFFFFFFF : at, 4) +
               le(commentSize.value_or(static_cast<std::uint16_t>(comment.size())), 2) + comment;
        return out + after;
    }
};

inline Zip archiveOf(std::vector<Entry> entries) {
    Zip zip;
    zip.entries = std::move(entries);
    return zip;
}

}  // namespace builder
