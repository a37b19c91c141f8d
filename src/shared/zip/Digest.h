#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zip/Archive.h"
#include "zip/Sha256.h"

/// The digest of an archive. Each entry of the central directory has an extra field 0x525A, the SHA-256 of its
/// member's uncompressed bytes; the first line of the archive's comment is "zr-digest:1:sha256:" and, in lower case
/// hexadecimal, the SHA-256 over the lines "<name>\0<size>\0<hash in hexadecimal>\n" of all members, sorted by their
/// bytes. Any other comment follows that line, after one "\n".
namespace zip {

inline constexpr std::uint16_t kDigestField = 0x525A;

struct DigestRow {
    std::string_view name;
    std::uint64_t size = 0;
    Hash hash{};
};

/// The first line of the comment, without the line end.
std::string digestLine(const std::vector<DigestRow>& rows);
/// Whether the comment has a digest, valid or not.
bool hasDigest(std::string_view comment);
/// Whether the comment's digest was computed from these rows.
bool commentTells(const Archive& archive, const std::vector<DigestRow>& rows);
/// The archive's comment with `line` before the text of others. Throws `ArchiveError` if it becomes too long, or cannot
/// be written because it is not a text in UTF-8.
std::string withDigest(const std::string& line, const Archive& archive);

/// The hash in the member's entry; no value if it has no such field, or a malformed one.
std::optional<Hash> digestField(const Member& member);
struct Checksums {
    Hash hash{};
    std::uint32_t crc = 0;
};
/// Of bytes that will become a member; no value if they cannot be read.
std::optional<Checksums> checksumsOf(const ByteSource& bytes);
/// Of the bytes of a member of any kind. Throws `ArchiveError`.
Hash hashOf(const Archive& archive, const Member& member);
/// Whether the comment agrees with the fields, so that these can be used.
bool isDigestValid(const Archive& archive);

}  // namespace zip
