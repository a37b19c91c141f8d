#pragma once
#include <cstdint>
#include <string_view>

namespace zip {

/// The supported compression methods.
enum class Method : std::uint16_t { stored = 0, deflated = 8 };

/// An entry of the central directory. What it states about the data is reliable only after the data have been read.
struct Member {
    std::string_view name;           ///< valid as long as the archive; must be checked before use as a path
    std::string_view extraFields;    ///< of the entry, each within its bounds; valid as long as the archive
    std::uint64_t size = 0;          ///< uncompressed, in bytes
    std::uint64_t packedSize = 0;    ///< compressed, in bytes
    std::uint64_t headerOffset = 0;  ///< of the local header, which precedes the compressed data
    std::uint64_t limit = 0;         ///< the member ends before this offset
    std::uint32_t crc = 0;
    std::uint32_t mode = 0;  ///< Unix type, which is that of the name or 0, and permissions; 0 if unknown
    std::uint16_t flags = 0;
    Method method = Method::stored;

    bool isDirectory() const { return name.ends_with('/'); }
    /// Whether sizes and CRC follow the data.
    bool hasDescriptor() const { return (flags & 8) != 0; }
    bool isMarkedUtf8() const { return (flags & (1 << 11)) != 0; }
};

/// Readers skip members that need a higher version of the format to be extracted.
inline constexpr std::uint16_t kMaxVersion = 46;

/// A data descriptor is a CRC and two sizes of 4 or 8 bytes, with a signature before them or without.
inline bool isDescriptorSize(std::uint64_t size) { return size == 12 || size == 16 || size == 20 || size == 24; }

}  // namespace zip
