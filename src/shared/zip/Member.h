#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <string_view>

namespace zip {

/// How a member is packed; no other method is read.
enum class Method : std::uint16_t { stored = 0, deflated = 8 };

/// One row of an archive's directory. What it says of the data is believed only after the data have been read.
struct Member {
    std::string_view name;           ///< lives as long as the archive; not fit for a path before it is judged
    std::string_view extraFields;    ///< of the row, each within its bounds; lives as long as the archive
    std::uint64_t size = 0;          ///< of the data, in bytes
    std::uint64_t packedSize = 0;    ///< of the data in the archive
    std::uint64_t headerOffset = 0;  ///< of the local header, which stands before the packed data
    std::uint64_t limit = 0;         ///< no byte of the member lies from here on
    std::uint32_t crc = 0;
    std::uint32_t mode = 0;  ///< type and permissions as Unix has them; 0 when the archive does not tell
    std::uint16_t flags = 0;
    Method method = Method::stored;

    bool isDirectory() const { return name.ends_with('/'); }
    /// Not a link or a device or the like.
    bool isPlain() const {
        const auto type = mode & S_IFMT;
        return type == 0 || type == (isDirectory() ? S_IFDIR : S_IFREG);
    }
    bool hasDescriptor() const { return (flags & 8) != 0; }
};

}  // namespace zip
