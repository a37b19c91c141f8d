#include "archive/PlatformMembers.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace archive {
namespace {

struct Row {
    PlatformMember member;
    std::string_view prefix, suffix;
};

constexpr std::array kRows{
    Row{PlatformMember::json, "", ".json"},
    Row{PlatformMember::altJson, "alt_", ".json"},
    Row{PlatformMember::hwEmuJson, "hw_emu/", ".json"},
    Row{PlatformMember::altHwEmuJson, "hw_emu/alt_", ".json"},
    Row{PlatformMember::xml, "", ".xml"},
    Row{PlatformMember::hwEmuXml, "hw_emu/", ".xml"},
};
static_assert(kRows.size() == std::size_t(PlatformMember::count_), "one row for each member");

}  // namespace

std::string platformMember(PlatformMember member, const std::string& ext) {
    const Row& row = *std::ranges::find(kRows, member, &Row::member);
    return ext.empty() ? std::string() : std::string(row.prefix).append(ext).append(row.suffix);
}

}  // namespace archive
