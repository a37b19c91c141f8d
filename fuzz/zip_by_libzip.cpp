#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Check.h"
#include "MembersByLibzip.h"
#include "zip/Archive.h"
#include "zip/ArchiveError.h"
#include "zip/Inflater.h"
#include "zip/MemoryBytes.h"
#include "zip/PackedData.h"

namespace {

constexpr std::uint64_t kMaxBytes = 1 << 20;

std::optional<std::string> dataOf(const zip::Archive& archive, const zip::Member& member) {
    try {
        return archive.read(member, kMaxBytes);
    } catch (const zip::ArchiveError&) {
        return std::nullopt;
    }
}

/// Whether the library that libzip unpacks with takes the packed data: it alone refuses the two length codes that are
/// reserved.
bool isTakenByZlib(const zip::Archive& archive, const zip::Member& member) {
    if (member.method == zip::Method::stored) return true;
    zip::PackedData packed(archive.bytes(), archive.name(), member, member.packedSize);
    zip::Inflater inflater(kMaxBytes);
    return inflater.unpack(packed.next(), [](std::string_view) {}).empty() && inflater.isDone();
}

/// libzip may take an end of central directory in a member's data for the archive's own; our reader knows it by its comment, which
/// ends where the archive does.
bool misleadsLibzip(std::string_view bytes) {
    constexpr std::string_view kEnd = "PK\5\6";
    return bytes.find(kEnd) != bytes.rfind(kEnd);
}

/// libzip takes a control character in a text that is marked as UTF-8 for the sign of another encoding, and refuses
/// the archive; ours reads it, and writes no such name to the disk.
bool mayDispleaseLibzip(const zip::Archive& archive) {
    return std::ranges::any_of(archive.members(), [](const zip::Member& member) { return member.flags & 0x800; });
}

}  // namespace

/// What our reader accepts libzip reads too, with the same names, sizes and bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    std::optional<zip::Archive> ours;
    try {
        ours.emplace(std::make_unique<zip::MemoryBytes>(bytes), "input");
    } catch (const zip::ArchiveError&) {
        return 0;
    }
    if (misleadsLibzip(bytes)) return 0;
    std::string fault;
    const auto theirs = membersByLibzip(bytes, kMaxBytes, fault);
    if (!fault.empty() && mayDispleaseLibzip(*ours)) return 0;
    require(fault.empty(), fault.c_str());
    require(theirs.size() == ours->members().size(), "both see the same number of members");
    for (std::size_t i = 0; i < theirs.size(); ++i) {
        const zip::Member& member = ours->members()[i];
        require(theirs[i].name == member.name, "names are the same");
        require(theirs[i].size == member.size, "sizes are the same");
        if (const auto read = dataOf(*ours, member)) {
            require(theirs[i].isRead || !isTakenByZlib(*ours, member), "libzip reads what we read");
            require(!theirs[i].isRead || theirs[i].data == *read, "data are the same");
        }
    }
    return 0;
}
