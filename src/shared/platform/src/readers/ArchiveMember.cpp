#include "readers/ArchiveMember.h"

#include <optional>

#include "archive/PlatformArchive.h"
#include "text/Limits.h"
#include "zip/ArchiveError.h"

namespace readers {

namespace {

/// nullopt if the archive or the member cannot be opened.
std::optional<std::string> read(const std::string& archive, std::string_view member) {
    try {
        return archive::PlatformArchive(archive).text(member);
    } catch (const HEXAll&) {
        return std::nullopt;
    }
}

}  // namespace

std::string_view withoutLeadingDot(std::string_view member) {
    constexpr std::string_view kLineEnds = "\n\r";
    if (member.size() < 2 || member[1] != '/' || member.find_first_of(kLineEnds) != std::string_view::npos)
        return member;
    const auto rest = member.find_first_not_of('/', 1);
    return rest == std::string_view::npos ? std::string_view() : member.substr(rest);
}

std::string textOfMember(const std::string& archive, const std::string& member) {
    // Metadata can give a name of many megabytes, but no member has one as long as this.
    const std::string name(withoutLeadingDot(member).substr(0, text::kMaxQuoted + 1));
    std::optional<std::string> text = read(archive, name);
    if (!text) throw HEXError(ComMsgMgr::make("@74-34@%s%s", archive, name));
    return std::move(*text);
}

}  // namespace readers
