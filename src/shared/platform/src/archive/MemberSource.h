#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zip/Archive.h"

namespace archive {

/// Members larger than this are not read whole unless the caller says so.
inline constexpr std::uint64_t kMetadataBound = zip::Archive::kMetadataBound;

struct MemberInfo {
    std::string name;  ///< a stranger's text
    std::uint64_t size = 0;
};

/// Where a platform's members come from: names and bytes, nothing of platforms. Names are compared byte for byte.
/// Damaged or lying archives raise `zip::ArchiveError`, which names archive and member.
class MemberSource {
public:
    virtual ~MemberSource() = default;

    /// The path of the archive, "path!member" for one in another; for messages.
    virtual const std::string& name() const = 0;
    /// The files among the members, in the source's order.
    virtual std::vector<MemberInfo> files() const = 0;
    virtual bool contains(std::string_view member) const = 0;
    /// The whole member of at most `bound` bytes; nothing when there is none of the name.
    virtual std::optional<std::string> read(std::string_view member, std::uint64_t bound = kMetadataBound) const = 0;
    /// Copies a member to a path of the user's own choice, whose directory must exist, and replaces what is there.
    /// False when there is no such member. Throws `HEXUserException` for the disk; no file is left half written.
    virtual bool copyOut(std::string_view member, const std::string& destination, bool mayReplace = true) const = 0;
    /// The archive that is a member, of this one or of one in it: two deep at most, and all that is unpacked along
    /// the way counts against one budget. Null when there is no such member.
    virtual std::shared_ptr<const MemberSource> openNested(std::string_view member) const = 0;
};

}  // namespace archive
