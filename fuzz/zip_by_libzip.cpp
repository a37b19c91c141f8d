#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Check.h"
#include "MembersByLibzip.h"
#include "zip/Archive.h"
#include "zip/ArchiveError.h"
#include "zip/MemoryBytes.h"

namespace {

constexpr std::uint64_t kMostBytes = 1 << 20;

/// In pieces: with the library that libzip unpacks with, so that both refuse the same packed data.
std::optional<std::string> dataOf(const zip::Archive& archive, const zip::Member& member) {
    std::string data;
    zip::OutputBudget budget(kMostBytes);
    try {
        archive.copyTo(
            member, [&data](std::string_view piece) { data += piece; }, budget);
    } catch (const zip::ArchiveError&) {
        return std::nullopt;
    }
    return data;
}

/// libzip may take an end record in a member's data for the archive's own; our reader knows it by its comment, which
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
    const auto theirs = membersByLibzip(bytes, kMostBytes, fault);
    if (!fault.empty() && mayDispleaseLibzip(*ours)) return 0;
    require(fault.empty(), fault.c_str());
    require(theirs.size() == ours->members().size(), "both see the same number of members");
    for (std::size_t i = 0; i < theirs.size(); ++i) {
        const zip::Member& member = ours->members()[i];
        require(theirs[i].name == member.name, "names are the same");
        require(theirs[i].size == member.size, "sizes are the same");
        if (const auto read = dataOf(*ours, member)) {
            require(theirs[i].isRead, "libzip reads what we read");
            require(theirs[i].data == *read, "data are the same");
        }
    }
    return 0;
}
