#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zip/Archive.h"
#include "zip/Sha256.h"

/// The digest of an archive. Each member's row in the central directory has an extra field 0x525A, the SHA-256 of its
/// unpacked bytes; the first line of the archive's comment is "zr-digest:1:sha256:" and, in lower case hexadecimal,
/// the SHA-256 over the lines "<name>\0<size>\0<hash in hexadecimal>\n" of all members, sorted by their bytes. A
/// comment of somebody else stands behind that line, after one "\n".
namespace zip {

inline constexpr std::uint16_t kDigestField = 0x525A;

struct DigestRow {
    std::string_view name;
    std::uint64_t size = 0;
    Hash hash{};
};

/// The first line of the comment, without its end.
std::string digestLine(const std::vector<DigestRow>& rows);
/// Whether the comment has a digest, of whatever worth.
bool hasDigest(std::string_view comment);
/// Whether the comment's digest was made of these rows.
bool commentTells(const Archive& archive, const std::vector<DigestRow>& rows);
/// The comment with `line` in front of what is not ours. Throws `HEXUserException` when there is no room for it.
std::string withDigest(const std::string& line, std::string_view comment);

/// What the member's row says; nothing when it has no such field, or one of another form, or several.
std::optional<Hash> digestField(const Member& member);
struct Checksums {
    Hash hash{};
    std::uint32_t crc = 0;
};
/// Of bytes that are going to be a member; nothing when they cannot be read.
std::optional<Checksums> checksumsOf(const ByteSource& bytes);
/// Of the member's bytes, whatever its kind. Throws `ArchiveError`.
Hash hashOf(const Archive& archive, const Member& member);
/// Whether the comment agrees with the fields, so that these can be believed.
bool isDigestValid(const Archive& archive);

}  // namespace zip
