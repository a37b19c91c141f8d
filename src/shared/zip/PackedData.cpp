#include "zip/PackedData.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>

#include "zip/ArchiveError.h"
#include "zip/ExtraFields.h"
#include "zip/LittleEndian.h"

namespace zip {
namespace {

constexpr std::size_t kHeaderSize = 30;
/// Read in advance for the extra fields, whose size is known only from the local header.
constexpr std::size_t kSlack = 512;
/// Bits 1 and 2 of a deflated member state the compression effort, which writers set as they like.
constexpr std::uint16_t kEffort = 6;

/// Whether `bytes` begin with the member's CRC and sizes, in the width of `Size`.
template <class Size>
bool matches(std::string_view bytes, const Member& member) {
    return bytes.size() >= 4 + 2 * sizeof(Size) && u32(&bytes[0]) == member.crc &&
           number<Size>(&bytes[4]) == member.packedSize && number<Size>(&bytes[4 + sizeof(Size)]) == member.size;
}

}  // namespace

PackedData::PackedData(const ByteSource& bytes, const std::string& archive, const Member& member, std::uint64_t block)
    : bytes_(bytes),
      archive_(archive),
      member_(member),
      block_(static_cast<std::size_t>(std::min(block, member.packedSize))) {
    const std::uint64_t wanted = kHeaderSize + member.name.size() + kSlack + block_;
    const auto window = static_cast<std::size_t>(std::min(wanted, member.limit - member.headerOffset));
    buffer_ = std::make_unique_for_overwrite<char[]>(wanted);
    if (!bytes_.read(member.headerOffset, buffer_.get(), window))
        refuse("it cannot be read from the archive", ArchiveError::Fault::unreadable);
    checkHeader({buffer_.get(), window});
}

void PackedData::refuse(const std::string& text, ArchiveError::Fault fault) const {
    throw ArchiveError(archive_, std::string(member_.name), text, fault);
}

void PackedData::checkHeader(std::string_view window) {
    const char* const header = window.data();
    if (!window.starts_with("PK\3\4"))
        refuse(fmt::format("there is no local header at byte {}, where its entry points", member_.headerOffset));
    const std::size_t nameSize = u16(header + 26), extraSize = u16(header + 28);
    if (window.substr(kHeaderSize, nameSize) != member_.name) refuse("its local header has another name");
    if (u16(header + 4) > kMaxVersion) refuse("its local header needs a higher version of the format");
    if ((u16(header + 6) ^ member_.flags) & ~(member_.method == Method::deflated ? kEffort : 0))
        refuse("its local header has other flags");
    if (Method(u16(header + 8)) != member_.method) refuse("its local header has another method");

    const std::uint64_t before = kHeaderSize + nameSize + extraSize;
    if (before > member_.limit - member_.headerOffset ||
        member_.limit - member_.headerOffset - before < member_.packedSize)
        refuse(fmt::format("its {} compressed bytes extend beyond byte {}", member_.packedSize, member_.limit));
    dataAt_ = member_.headerOffset + before;
    if (before <= window.size()) {
        checkSizes(header, window.substr(kHeaderSize + nameSize, extraSize));
        ready_ = window.substr(before, block_);
        return;
    }
    std::string extraFields(extraSize, '\0');
    if (!bytes_.read(dataAt_ - extraSize, extraFields.data(), extraSize))
        refuse("it cannot be read from the archive", ArchiveError::Fault::unreadable);
    checkSizes(header, extraFields);
}

void PackedData::checkSizes(const char* header, std::string_view extraFields) {
    if (!areExtraFieldsSound(extraFields))
        refuse("the extra fields of its local header are malformed, or one occurs twice");
    const auto field = findExtraField(extraFields, kZip64Field);
    if (!extraFieldsAgree(extraFields, member_.name))
        refuse("the extra fields of its local header give it another name or type");
    if (field && field->size() < 16) refuse("the zip64 field of its local header lacks a size");
    isZip64_ = field.has_value();
    std::uint64_t packedSize = u32(header + 18), size = u32(header + 22);
    if (packedSize == kIn64As32 || size == kIn64As32) {
        if (!field) refuse("the zip64 field of its local header is missing");
        if (packedSize != size) refuse("the zip64 field of its local header replaces one of two sizes");
        size = u64(field->data());
        packedSize = u64(field->data() + 8);
    }
    const bool follows = member_.hasDescriptor();  // zeros here, the values after the data
    const auto agrees = [follows](auto local, auto central) { return local == central || (follows && local == 0); };
    if (!agrees(size, member_.size) || !agrees(packedSize, member_.packedSize))
        refuse(fmt::format("its local header has {} compressed bytes of {}, its entry {} of {}", packedSize, size,
                           member_.packedSize, member_.size));
    // Some readers take the sizes from this field although the header has them.
    if (field && !(agrees(u64(field->data()), member_.size) && agrees(u64(field->data() + 8), member_.packedSize)))
        refuse("the zip64 field of its local header disagrees with its entry");
    if (!agrees(u32(header + 14), member_.crc)) refuse("its local header has another CRC");
}

std::string_view PackedData::next() {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(block_, member_.packedSize - done_));
    if (count > 0 && ready_.size() < count) {
        if (!bytes_.read(dataAt_ + done_, buffer_.get(), count))
            refuse("it cannot be read from the archive", ArchiveError::Fault::unreadable);
        ready_ = {buffer_.get(), count};
    }
    done_ += count;
    return std::exchange(ready_, {}).substr(0, count);
}

void PackedData::checkDescriptor() const {
    if (!member_.hasDescriptor()) return;
    const std::uint64_t at = dataAt_ + member_.packedSize, size = member_.limit - at;
    std::array<char, 24> buffer{};
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), size));
    if (!bytes_.read(at, buffer.data(), count))
        refuse("it cannot be read from the archive", ArchiveError::Fault::unreadable);
    std::string_view descriptor(buffer.data(), count);
    // Without a signature, the end of stored data cannot be found, and a CRC must not look like the signature.
    const bool hasSignature = descriptor.starts_with("PK\7\10"), needsOne = member_.method == Method::stored;
    if (hasSignature) descriptor.remove_prefix(4);
    // A zip64 field tells streaming readers the width. Writers that learn only from the data that they need 8 bytes
    // have none.
    const bool isWide = isZip64_ || std::max(member_.size, member_.packedSize) >= kIn64As32;
    if (!isDescriptorSize(size) || isWide != (size >= 20) || hasSignature != (size % 8 == 0) ||
        (needsOne && !hasSignature) ||
        !(isWide ? matches<std::uint64_t>(descriptor, member_) : matches<std::uint32_t>(descriptor, member_)))
        refuse("the data descriptor after its data is missing or disagrees with its entry");
    // A reader that expects sizes of 4 bytes finds them right, and the zeros after them where a header should be.
    std::array<char, 4> next{};
    if (isWide && member_.size == 0 && member_.method == Method::deflated &&
        bytes_.read(member_.limit, next.data(), next.size()) && next == std::array{'P', 'K', '\3', '\4'})
        refuse("sizes of 8 bytes after its data, of which there are none, look like the end of the archive");
}

}  // namespace zip
