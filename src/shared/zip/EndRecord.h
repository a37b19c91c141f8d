#pragma once
#include <cstdint>
#include <string>

#include "zip/ByteSource.h"

namespace zip {

/// The end of central directory, checked as far as possible without the rest of the archive.
struct EndRecord {
    std::uint64_t members = 0;
    std::uint64_t directoryOffset = 0,
                  directorySize = 0;  ///< the central directory; ends where the end of central directory begins
    std::string comment;

    std::string tail;  ///< the last bytes of the archive, which often hold the whole directory
    std::uint64_t tailOffset = 0;
};

/// The end of central directory begins at most this far before the end of the archive.
inline constexpr std::uint64_t kEndRecordReach = 22 + 0xFFFF;

/// Throws `ArchiveError` with the name `archive`.
EndRecord readEndRecord(const ByteSource& bytes, const std::string& archive);

}  // namespace zip
