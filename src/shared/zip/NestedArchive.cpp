#include "zip/NestedArchive.h"

#include <utility>

#include "text/HSTStringUtils.h"
#include "zip/ArchiveError.h"
#include "zip/FileBytes.h"
#include "zip/MemoryBytes.h"

std::unique_ptr<zip::Archive> zip::openNested(const Archive& outer, const Member& member, OutputBudget& budget) {
    std::string name = outer.name() + "!" + HSTStringUtils::printable(member.name);
    if (member.size <= Archive::kMetadataBound) {
        std::string bytes;
        bytes.reserve(member.size);
        outer.copyTo(
            member, [&bytes](std::string_view piece) { bytes += piece; }, budget);
        return std::make_unique<Archive>(std::make_unique<MemoryBytes>(std::move(bytes)), std::move(name));
    }
    auto file = FileBytes::makeTemporary();
    outer.copyTo(
        member, [&file](std::string_view piece) { file->append(piece.data(), piece.size()); }, budget);
    return std::make_unique<Archive>(std::move(file), std::move(name));
}
