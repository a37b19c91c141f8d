#include "zip/Directory.h"

#include <fmt/core.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <numeric>

#include "zip/ArchiveError.h"
#include "zip/EndRecord.h"
#include "zip/ExtraFields.h"
#include "zip/LittleEndian.h"
#include "zip/MemberName.h"

namespace zip {
namespace {

constexpr std::size_t kEntrySize = 46;
constexpr std::uint16_t kEncrypted = 1 << 0, kPatch = 1 << 5, kStrongEncryption = 1 << 6, kMasked = 1 << 13;
/// The maximum compression ratio of deflate.
constexpr std::uint64_t kMaxRatio = 1032;

constexpr std::uint32_t kDosDirectory = 0x10;
/// Read-only, hidden, system, directory, archive, normal; temporary, sparse, compressed, not indexed; and a mark that
/// the upper half has a mode. Not the label of a volume, a device, or a reparse point, whose data are a link's target.
constexpr std::uint32_t kDosAttributes =
    0x01 | 0x02 | 0x04 | kDosDirectory | 0x20 | 0x80 | 0x100 | 0x200 | 0x800 | 0x2000 | 0x8000;
constexpr std::uint8_t kAmiga = 1;
constexpr std::uint32_t kAmigaType = 06000, kAmigaDirectory = 04000;

/// Whether each reader takes the member for what its name says. Some look at the type in the upper half of the
/// attributes, or at the lower one, whatever system the entry was made on.
bool hasTypeOfName(const Member& member, std::uint8_t system, std::uint32_t attributes) {
    const std::uint32_t type = member.mode & S_IFMT;
    if (attributes & 0xFFFF & ~kDosAttributes) return false;
    if (member.isDirectory()) return type == 0 || type == S_IFDIR;
    if (system == kAmiga && (member.mode & kAmigaType) == kAmigaDirectory) return false;
    return (type == 0 || type == S_IFREG) && (attributes & kDosDirectory) == 0;
}

/// Local headers, mostly from bytes that have been read already.
class Headers {
public:
    static constexpr std::size_t kSize = 30;

    Headers(const ByteSource& bytes, const EndRecord& end) : bytes_(bytes), end_(end) {}

    /// Null if it cannot be read.
    const char* at(std::uint64_t offset) {
        if (offset >= end_.tailOffset) return &end_.tail[offset - end_.tailOffset];
        if (offset < blockAt_ || offset - blockAt_ + kSize > block_.size()) {
            block_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, bytes_.size() - offset)));
            blockAt_ = offset;
            if (!bytes_.read(offset, block_.data(), block_.size())) return nullptr;
        }
        return &block_[offset - blockAt_];
    }

private:
    static constexpr std::size_t kBlock = 4096;

    const ByteSource& bytes_;
    const EndRecord& end_;
    std::string block_;
    std::uint64_t blockAt_ = 0;
};

}  // namespace

Directory::Directory(const ByteSource& bytes, const std::string& archive) : archive_(archive) {
    EndRecord end = readEndRecord(bytes, archive);
    load(bytes, end);
    comment_ = std::move(end.comment);
    readEntries(end.members);
    setLimits(end.directoryOffset);
    checkAdjacent(bytes, end);
    index_ = NameIndex(members_);
    if (const Member* const twice = index_.duplicate()) refuse(twice->name, "two members have this name");
}

void Directory::refuse(std::string_view member, const std::string& text) const {
    throw ArchiveError(archive_, std::string(member), text);
}

void Directory::load(const ByteSource& bytes, const EndRecord& end) {
    size_ = end.directorySize;
    bytes_ = std::make_unique_for_overwrite<char[]>(size_ + 1);
    if (end.directoryOffset >= end.tailOffset)
        std::memcpy(bytes_.get(), end.tail.data() + (end.directoryOffset - end.tailOffset), size_);
    else if (!bytes.read(end.directoryOffset, bytes_.get(), size_))
        refuse("", "its central directory cannot be read");
    const std::size_t near = std::min<std::uint64_t>(size_, kEndRecordReach);
    if (std::string_view(bytes_.get() + size_ - near, near).find("PK\5\6") != std::string_view::npos)
        refuse("", "its central directory holds a second end of central directory");
}

void Directory::readEntries(std::uint64_t count) {
    members_.reserve(std::min<std::uint64_t>(count, size_ / kEntrySize));
    for (std::size_t at = 0; at < size_;) {
        if (members_.size() == count)
            refuse("",
                   fmt::format("the end of central directory counts {} members, but the central directory has more",
                               count));
        at += readEntry({bytes_.get() + at, size_ - at});
    }
    if (members_.size() != count)
        refuse("", fmt::format("the end of central directory counts {} members, but the central directory has {}",
                               count, members_.size()));
}

std::size_t Directory::readEntry(std::string_view rest) {
    const char* const entry = rest.data();
    const auto misplaced = [&] {
        return fmt::format("entry {} of the central directory is malformed or truncated", members_.size() + 1);
    };
    if (rest.size() < kEntrySize || !rest.starts_with("PK\1\2")) refuse("", misplaced());
    const std::size_t nameSize = u16(entry + 28), extraSize = u16(entry + 30);
    const std::size_t commentSize = u16(entry + 32), size = kEntrySize + nameSize + extraSize + commentSize;
    if (size > rest.size()) refuse("", misplaced());

    Member& member = members_.emplace_back();
    member.name = rest.substr(kEntrySize, nameSize);
    member.flags = u16(entry + 8);
    member.method = Method(u16(entry + 10));
    member.crc = u32(entry + 16);
    member.packedSize = u32(entry + 20);
    member.size = u32(entry + 24);
    member.mode = u32(entry + 38) >> 16;
    member.headerOffset = u32(entry + 42);
    member.extraFields = rest.substr(kEntrySize + nameSize, extraSize);
    if (!areExtraFieldsSound(member.extraFields))
        refuse(member.name, "the extra fields of its entry are malformed, or one occurs twice");
    readZip64(member, entry);
    checkEntry(member, entry);
    if (member.isMarkedUtf8() && !(isUtf8(member.name) && isUtf8(rest.substr(size - commentSize, commentSize))))
        refuse(member.name, "its name or its comment is marked as UTF-8 and is not");
    return size;
}

/// The zip64 field holds the values that do not fit their fields in the entry, or all of them, in this order.
void Directory::readZip64(Member& member, const char* entry) const {
    const auto field = findExtraField(member.extraFields, kZip64Field);
    std::uint64_t* const values[] = {&member.size, &member.packedSize, &member.headerOffset};
    const auto missing = std::ranges::count_if(values, [](auto* value) { return *value == kIn64As32; });
    const bool diskMissing = u16(entry + 34) == kIn64As16;
    if (!field) {
        if (missing > 0 || diskMissing) refuse(member.name, "the zip64 field of its entry is missing");
        return;
    }
    const std::size_t size = field->size(), diskSize = diskMissing ? 4 : 0;
    const bool hasAll = size == 24 + diskSize;
    // With all values, readers that expect only the missing ones must find the same.
    const bool areFirst = std::ranges::is_partitioned(values, [](auto* value) { return *value == kIn64As32; });
    if (hasAll ? !areFirst : size != 8 * static_cast<std::size_t>(missing) + diskSize)
        refuse(member.name, fmt::format("the zip64 field of its entry has {} bytes", size));
    const char* at = field->data();
    for (std::uint64_t* const value : values) {
        if (*value != kIn64As32 && !hasAll) continue;
        if (*value != kIn64As32 && *value != u64(at))
            refuse(member.name, "the zip64 field of its entry disagrees with the entry");
        *value = u64(at);
        at += 8;
    }
    if (diskMissing && u32(at) != 0) refuse(member.name, "it is in another part of a split archive");
}

void Directory::checkEntry(const Member& member, const char* entry) const {
    if (member.name.empty()) refuse("", fmt::format("member {} has no name", members_.size()));
    if (member.name.find('\0') != std::string_view::npos) refuse(member.name, "its name contains NUL");
    if (u16(entry + 34) != 0 && u16(entry + 34) != kIn64As16)
        refuse(member.name, "it is in another part of a split archive");
    if (member.flags & (kEncrypted | kStrongEncryption | kMasked)) refuse(member.name, "it is encrypted");
    if (member.flags & kPatch) refuse(member.name, "it is patch data, which is not supported");
    if (member.method != Method::stored && member.method != Method::deflated)
        refuse(member.name,
               fmt::format("it is compressed by method {}; only 0 (stored) and 8 (deflated) are supported",
                           static_cast<unsigned>(member.method)));
    if (member.method == Method::stored && member.size != member.packedSize)
        refuse(member.name, fmt::format("it is stored, but has {} compressed and {} uncompressed bytes",
                                        member.packedSize, member.size));
    if (!hasTypeOfName(member, static_cast<std::uint8_t>(entry[5]), u32(entry + 38)))
        refuse(member.name, "it is a link or a device, or not what its name says");
    if (!extraFieldsAgree(member.extraFields, member.name))
        refuse(member.name, "the extra fields of its entry give it another name or type");
    if (member.size / kMaxRatio > member.packedSize)
        refuse(member.name, fmt::format("{} compressed bytes cannot hold {} bytes", member.packedSize, member.size));
    if (u16(entry + 6) > kMaxVersion)
        refuse(member.name, fmt::format("it needs version {} of the format; at most {} is supported", u16(entry + 6),
                                        kMaxVersion));
}

/// Checks the members by their position in the archive: the first at its first byte, each after the previous one.
void Directory::setLimits(std::uint64_t directoryOffset) {
    std::vector<std::uint32_t> order(members_.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto before = [this](auto x, auto y) { return members_[x].headerOffset < members_[y].headerOffset; };
    if (!std::ranges::is_sorted(order, before)) std::ranges::sort(order, before);

    const std::uint64_t first = order.empty() ? directoryOffset : members_[order.front()].headerOffset;
    if (first != 0) refuse("", fmt::format("there are {} bytes before its first member", first));
    for (std::size_t i = 0; i < order.size(); ++i) {
        Member& member = members_[order[i]];
        member.limit = i + 1 < order.size() ? members_[order[i + 1]].headerOffset : directoryOffset;
        const std::uint64_t least = Headers::kSize + member.name.size();
        if (member.headerOffset <= member.limit && member.limit - member.headerOffset >= least &&
            member.limit - member.headerOffset - least >= member.packedSize)
            continue;
        refuse(member.name, fmt::format("its {} compressed bytes at byte {} extend beyond byte {}, where {} begins",
                                        member.packedSize, member.headerOffset, member.limit,
                                        i + 1 < order.size() ? "the next member" : "the central directory"));
    }
}

/// Only extra fields and a data descriptor may be between a member's name, its data and the next member: a reader that
/// takes one local header after the other must find the same members. Members without room for either, as in the
/// archives that this library writes, need no look at their headers.
void Directory::checkAdjacent(const ByteSource& bytes, const EndRecord& end) const {
    Headers headers(bytes, end);
    for (const Member& member : members_) {
        std::uint64_t left =
            member.limit - member.headerOffset - Headers::kSize - member.name.size() - member.packedSize;
        if (left == 0) continue;
        const char* const header = headers.at(member.headerOffset);
        if (!header)
            throw ArchiveError(archive_, std::string(member.name), "it cannot be read from the archive",
                               ArchiveError::Fault::unreadable);
        if (!std::string_view(header, 4).starts_with("PK\3\4"))
            refuse(member.name,
                   fmt::format("there is no local header at byte {}, where its entry points", member.headerOffset));
        if (u16(header + 26) != member.name.size()) refuse(member.name, "its local header has another name");
        const std::size_t extraSize = u16(header + 28);
        if (extraSize > left) continue;  // reported when the member is read, which fails
        left -= extraSize;
        if (left == 0 || (member.hasDescriptor() && isDescriptorSize(left))) continue;
        refuse(member.name, fmt::format("{} bytes of no member are before byte {}", left, member.limit));
    }
}

}  // namespace zip
