#include "zip/Digest.h"

#include <libdeflate.h>

#include <algorithm>
#include <limits>

#include "zip/ArchiveError.h"
#include "zip/ExtraFields.h"
#include "zip/MemberName.h"

namespace zip {
namespace {

constexpr std::string_view kAnyVersion = "zr-digest:", kThisVersion = "zr-digest:1:sha256:";
constexpr std::uint64_t kBlock = 256UL * 1024;
constexpr std::size_t kMaxComment = 0xFFFF;

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r'; }
std::string_view firstLine(std::string_view comment) { return comment.substr(0, comment.find('\n')); }

}  // namespace

std::string digestLine(const std::vector<DigestRow>& rows) {
    std::vector<std::string> lines;
    lines.reserve(rows.size());
    for (const DigestRow& row : rows) {
        std::string& line = lines.emplace_back(row.name);
        line.append(1, '\0').append(std::to_string(row.size)).append(1, '\0').append(hexOf(row.hash)).append(1, '\n');
    }
    std::ranges::sort(lines);
    Sha256 all;
    for (const std::string& line : lines) all.add(line);
    return std::string(kThisVersion) + hexOf(all.finish());
}

bool hasDigest(std::string_view comment) { return comment.starts_with(kAnyVersion); }

bool commentTells(const Archive& archive, const std::vector<DigestRow>& rows) {
    return firstLine(archive.comment()) == digestLine(rows);
}

std::string withDigest(const std::string& line, const Archive& archive) {
    std::string_view foreign = archive.comment();
    if (hasDigest(foreign)) foreign.remove_prefix(std::min(foreign.size(), firstLine(foreign).size() + 1));
    if (foreign.empty()) return line;
    if (line.size() + 1 + foreign.size() > kMaxComment)
        throw ArchiveError(archive.name(), "", "its comment is too long to add a digest");
    if (!isUtf8(foreign) || std::ranges::any_of(foreign, isControl))
        throw ArchiveError(archive.name(), "",
                           "its comment is not UTF-8 or has a control character: no digest is added");
    return line + "\n" + std::string(foreign);
}

std::optional<Hash> digestField(const Member& member) {
    const auto field = findExtraField(member.extraFields, kDigestField);
    Hash hash;
    if (!field || field->size() != hash.size()) return std::nullopt;
    std::ranges::copy(*field, hash.begin());
    return hash;
}

std::optional<Checksums> checksumsOf(const ByteSource& bytes) {
    Checksums sums;
    Sha256 hash;
    std::string block;
    for (std::uint64_t at = 0; at < bytes.size(); at += block.size()) {
        block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, bytes.size() - at)));
        if (!bytes.read(at, block.data(), block.size())) return std::nullopt;
        hash.add(block);
        sums.crc = libdeflate_crc32(sums.crc, block.data(), block.size());
    }
    sums.hash = hash.finish();
    return sums;
}

Hash hashOf(const Archive& archive, const Member& member) {
    // Nothing decompressed is kept, and deflate limits it by the archive's size.
    OutputBudget unlimited(std::numeric_limits<std::uint64_t>::max());
    Sha256 hash;
    archive.unpack(
        member, [&hash](std::string_view piece) { hash.add(piece); }, unlimited);
    return hash.finish();
}

bool isDigestValid(const Archive& archive) {
    if (!hasDigest(archive.comment())) return false;
    std::vector<DigestRow> rows;
    rows.reserve(archive.members().size());
    for (const Member& member : archive.members()) {
        const auto hash = digestField(member);
        if (!hash) return false;
        rows.push_back({member.name, member.size, *hash});
    }
    return commentTells(archive, rows);
}

}  // namespace zip
