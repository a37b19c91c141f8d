#include "zip/Archive.h"

#include <fmt/core.h>
#include <libdeflate.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "msg/Budget.h"
#include "zip/FileBytes.h"
#include "zip/Inflater.h"
#include "zip/LittleEndian.h"
#include "zip/PackedData.h"

namespace zip {
namespace {

constexpr std::uint64_t kBlock = 256UL * 1024;
constexpr std::string_view kTooMany = "it decompresses to more bytes than its entry declares",
                           kTooFew = "it decompresses to fewer bytes than its entry declares",
                           kSpent = "decompressing it would exceed the budget of the call";

/// Deflated members of up to this size are decompressed at once by the faster of two libraries, larger ones in pieces
/// by the other. The two do not refuse the same damaged data, so the choice depends only on a member's size, not on
/// how it is read.
constexpr std::uint64_t kWhole = 4UL * 1024 * 1024;

bool isUnpackedWhole(const Member& member) {
    return member.method == Method::deflated && member.size <= kWhole && member.packedSize <= kWhole + kBlock;
}

struct Fault {
    std::string_view text;  ///< empty if there is none
    ArchiveError::Fault kind = ArchiveError::Fault::other;
};

/// Decompresses all of `packed` into all of `data`: nothing of either may be left over.
Fault inflateWhole(std::string_view packed, std::string& data) {
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!decompressor) throw std::bad_alloc();
    std::size_t taken = 0, made = 0;
    switch (libdeflate_deflate_decompress_ex(decompressor.get(), packed.data(), packed.size(), data.data(),
                                             data.size(), &taken, &made)) {
        case LIBDEFLATE_SUCCESS: break;
        case LIBDEFLATE_INSUFFICIENT_SPACE: return {kTooMany, ArchiveError::Fault::size};
        default: return {"its compressed data are damaged or truncated"};
    }
    if (made != data.size()) return {kTooFew, ArchiveError::Fault::size};
    return {taken == packed.size() ? "" : "there are bytes after its compressed data"};
}

/// Readers that take an archive as a stream know where a stored member ends only by its data descriptor: the data must
/// not contain one with the right CRC or compressed size. Some of these readers compare only one of them.
class DescriptorSearch {
public:
    explicit DescriptorSearch(const Member& member) : member_(member) {}

    bool finds(std::string_view piece) {
        if (!member_.hasDescriptor()) return false;
        window_ += piece;
        std::size_t done = 0;
        const auto skipTo = [&](std::size_t at) {
            crc_ = libdeflate_crc32(crc_, window_.data() + done, at - done);
            done = at;
        };
        for (auto at = window_.find(kSignature); at != window_.npos && at + kSize <= window_.size();
             at = window_.find(kSignature, at + 1)) {
            skipTo(at);
            if (u32(&window_[at + 4]) == crc_ || u32(&window_[at + 8]) == static_cast<std::uint32_t>(windowAt_ + at))
                return true;
        }
        skipTo(window_.size() - std::min(window_.size(), kSize - 1));
        windowAt_ += done;
        window_.erase(0, done);
        return false;
    }

    /// After the last piece: one that begins in the data may end in the member's own descriptor.
    bool findsAtEnd() {
        std::string own(kSignature);
        own.resize(8);
        std::memcpy(&own[4], &member_.crc, sizeof member_.crc);
        return finds(own);
    }

private:
    static constexpr std::string_view kSignature = "PK\7\10";
    static constexpr std::size_t kSize = 12;  ///< signature, CRC and the lower half of the compressed size

    const Member& member_;
    std::string window_;
    std::uint64_t windowAt_ = 0;
    std::uint32_t crc_ = 0;  ///< of the data before the window
};

}  // namespace

Archive::Archive(const std::string& path) : Archive(std::make_unique<FileBytes>(path), path) {}

Archive::Archive(std::unique_ptr<ByteSource> bytes, std::string name)
    : name_(std::move(name)), bytes_(std::move(bytes)), directory_(*bytes_, name_) {}

void Archive::refuse(const Member& member, const std::string& text, Fault fault) const {
    throw ArchiveError(name_, std::string(member.name), text, fault);
}

void Archive::checkIsFile(const Member& member) const {
    if (member.isDirectory()) refuse(member, "it is a directory");
}

void Archive::checkCrc(const Member& member, std::uint32_t crc) const {
    if (crc != member.crc)
        refuse(member, fmt::format("its CRC is {:08x}, but its entry says {:08x}", crc, member.crc), Fault::crc);
}

std::string Archive::read(const Member& member, std::uint64_t bound) const {
    checkIsFile(member);
    if (member.size > bound || (member.packedSize > kBlock && member.packedSize - kBlock > bound))
        refuse(member, fmt::format("it has {} bytes, {} compressed; at most {} are read", member.size,
                                   member.packedSize, bound));
    if (isUnpackedWhole(member)) return unpackWhole(member);
    std::string data;
    data.reserve(member.size);
    OutputBudget budget(bound);
    unpackInPieces(
        member, [&data](std::string_view piece) { data += piece; }, budget);
    return data;
}

std::string Archive::unpackWhole(const Member& member) const {
    PackedData packed(*bytes_, name_, member, member.packedSize);
    std::string data(member.size, '\0');
    if (const auto fault = inflateWhole(packed.next(), data); !fault.text.empty())
        refuse(member, std::string(fault.text), fault.kind);
    checkCrc(member, libdeflate_crc32(0, data.data(), data.size()));
    packed.checkDescriptor();
    return data;
}

void Archive::copyTo(const Member& member, const Sink& sink, OutputBudget& budget) const {
    checkIsFile(member);
    if (member.size > mostUnpacked())
        refuse(member, fmt::format("it has {} bytes; of an archive of this size, at most {} are unpacked",
                                   member.size, mostUnpacked()));
    unpack(member, sink, budget);
}

void Archive::checkUnpackedSize() const {
    std::uint64_t left = mostUnpacked();
    for (const Member& member : members()) {
        if (member.size > left)
            throw ArchiveError(
                name_, "",
                fmt::format("the archive unpacks to more than {} bytes, the most for its size", mostUnpacked()));
        left -= member.size;
    }
}

void Archive::checkHeader(const Member& member) const {
    const PackedData packed(*bytes_, name_, member, 0);
    packed.checkDescriptor();
}

void Archive::unpack(const Member& member, const Sink& sink, OutputBudget& budget) const {
    Budget::spend(Cost::data, member.size);
    if (!isUnpackedWhole(member)) return unpackInPieces(member, sink, budget);
    if (!budget.spend(member.size)) refuse(member, std::string(kSpent));
    if (const std::string data = unpackWhole(member); !data.empty()) sink(data);
}

void Archive::unpackInPieces(const Member& member, const Sink& sink, OutputBudget& budget) const {
    std::uint64_t size = 0;
    std::uint32_t crc = 0;
    const auto take = [&](std::string_view piece) {
        size += piece.size();
        if (size > member.size) refuse(member, std::string(kTooMany), Fault::size);
        if (!budget.spend(piece.size())) refuse(member, std::string(kSpent));
        crc = libdeflate_crc32(crc, piece.data(), piece.size());
        sink(piece);
    };
    PackedData packed(*bytes_, name_, member, kBlock);
    if (member.method == Method::stored) {
        DescriptorSearch early(member);
        const auto refuseIf = [&](bool found) {
            if (found) refuse(member, "its data contain what looks like its data descriptor");
        };
        for (auto piece = packed.next(); !piece.empty(); piece = packed.next()) {
            refuseIf(early.finds(piece));
            take(piece);
        }
        refuseIf(early.findsAtEnd());
    } else {
        Inflater inflater(kBlock);
        for (auto piece = packed.next(); !piece.empty(); piece = packed.next())
            if (const auto fault = inflater.unpack(piece, take); !fault.empty()) refuse(member, std::string(fault));
        if (!inflater.isDone()) refuse(member, "its compressed data are truncated");
    }
    if (size != member.size) refuse(member, std::string(kTooFew), Fault::size);
    checkCrc(member, crc);
    packed.checkDescriptor();
}

}  // namespace zip
