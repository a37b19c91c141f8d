#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "zip/ArchiveError.h"
#include "zip/ByteSource.h"
#include "zip/Member.h"

namespace zip {

/// The compressed bytes of one member, after its local header, which must agree with the central directory. Throws
/// `ArchiveError`.
class PackedData {
public:
    /// Reads the header together with up to `block` bytes of data.
    PackedData(const ByteSource& bytes, const std::string& archive, const Member& member, std::uint64_t block);

    /// The next piece of at most `block` bytes; empty at the end. Valid until the next call.
    std::string_view next();
    /// To be called after the last piece: checks the sizes and the CRC that some archives repeat there.
    void checkDescriptor() const;

private:
    void checkHeader(std::string_view window);
    void checkSizes(const char* header, std::string_view extraFields);
    [[noreturn]] void refuse(const std::string& text, ArchiveError::Fault fault = ArchiveError::Fault::other) const;

    const ByteSource& bytes_;
    const std::string& archive_;
    const Member& member_;
    const std::size_t block_;
    std::unique_ptr<char[]> buffer_;
    std::string_view ready_;    ///< the data read with the header
    std::uint64_t dataAt_ = 0;  ///< offset of the compressed data
    std::uint64_t done_ = 0;    ///< compressed bytes returned so far
    bool isZip64_ = false;      ///< the local header has a zip64 field
};

}  // namespace zip
