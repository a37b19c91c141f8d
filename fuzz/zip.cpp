#include <cstdint>
#include <optional>
#include <string>

#include "Check.h"
#include "zip/Archive.h"
#include "zip/ArchiveError.h"
#include "zip/MemoryBytes.h"
#include "zip/NestedArchive.h"

namespace {

constexpr std::uint64_t kMaxBytes = 1 << 20;
constexpr int kMaxDepth = 2;

std::optional<std::string> readWhole(const zip::Archive& archive, const zip::Member& member) {
    try {
        return archive.read(member, kMaxBytes);
    } catch (const zip::ArchiveError&) {
        return std::nullopt;
    }
}

std::optional<std::string> readInPieces(const zip::Archive& archive, const zip::Member& member) {
    std::string data;
    zip::OutputBudget budget(kMaxBytes);
    try {
        archive.copyTo(
            member, [&data](std::string_view piece) { data += piece; }, budget);
    } catch (const zip::ArchiveError&) {
        return std::nullopt;
    }
    require(budget.left() == kMaxBytes - data.size(), "the budget pays for each byte");
    return data;
}

void readAll(const zip::Archive& archive, int depth) {
    for (const zip::Member& member : archive.members()) {
        require(archive.find(member.name) == &member, "each member is found by its name");
        const auto whole = readWhole(archive, member);
        const auto pieces = readInPieces(archive, member);
        require(whole == pieces, "a member is the same whole and in pieces");
        if (!whole) continue;
        require(whole->size() == member.size, "a member has as many bytes as its archive says");
        if (depth == kMaxDepth) continue;
        try {
            zip::OutputBudget budget(kMaxBytes);
            readAll(*zip::openNested(archive, member, budget), depth + 1);
        } catch (const zip::ArchiveError&) {  // no archive
        }
    }
}

}  // namespace

/// Reads an archive in memory, each member whole and in pieces, and the archives in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        readAll(zip::Archive(std::make_unique<zip::MemoryBytes>(std::string(data, data + size)), "input"), 0);
    } catch (const zip::ArchiveError&) {
    }
    return 0;
}
