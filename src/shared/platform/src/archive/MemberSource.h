#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zip/Archive.h"

namespace archive {

/// Larger members are not read whole unless the caller asks for it.
inline constexpr std::uint64_t kMetadataBound = zip::Archive::kMetadataBound;

struct MemberInfo {
    std::string name;  ///< untrusted
    std::uint64_t size = 0;
};

/// A source of members: names and bytes, without any knowledge of platforms. Names are compared byte for byte. A
/// damaged or inconsistent archive throws `zip::ArchiveError`, which names archive and member.
class MemberSource {
public:
    virtual ~MemberSource() = default;

    /// The path of the archive, for messages; "path!member" for a nested archive.
    virtual const std::string& name() const = 0;
    /// All members except directories, in the source's order.
    virtual std::vector<MemberInfo> files() const = 0;
    virtual bool contains(std::string_view member) const = 0;
    /// The whole member, of at most `bound` bytes; nullopt if there is no member of that name.
    virtual std::optional<std::string> read(std::string_view member, std::uint64_t bound = kMetadataBound) const = 0;
    /// Copies a member to a path that the user chose, whose directory must exist, and replaces an existing file. False
    /// if there is no such member. Throws `HEXUserException` if writing fails; no file is left half written.
    virtual bool copyOut(std::string_view member, const std::string& destination, bool mayReplace = true) const = 0;
    /// Opens an archive that is a member, at most two levels deep. Everything decompressed along the way counts
    /// against one budget. Null if there is no such member.
    virtual std::shared_ptr<const MemberSource> openNested(std::string_view member) const = 0;
};

}  // namespace archive
