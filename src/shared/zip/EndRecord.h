#pragma once
#include <cstdint>
#include <string>

#include "zip/ByteSource.h"

namespace zip {

/// What the end of an archive says about it, checked as far as the end alone can be.
struct EndRecord {
    std::uint64_t members = 0;
    std::uint64_t directoryOffset = 0,
                  directorySize = 0;  ///< the central directory; ends where the end records begin
    std::string comment;

    std::string tail;  ///< the last bytes of the archive, which often hold the whole directory
    std::uint64_t tailOffset = 0;
};

/// An end record lies at most this far from the end of its archive.
inline constexpr std::uint64_t kEndRecordReach = 22 + 0xFFFF;

/// Throws `ArchiveError` with the name `archive`.
EndRecord readEndRecord(const ByteSource& bytes, const std::string& archive);

}  // namespace zip
