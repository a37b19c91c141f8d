#pragma once
#include <memory>

#include "zip/Archive.h"

namespace zip {

/// An archive that is a member of another one. A member of up to `Archive::kMetadataBound` bytes is decompressed in
/// memory, a larger one to an unnamed temporary file. Throws `ArchiveError`, and `HEXUserException` if the file
/// cannot be written.
std::unique_ptr<Archive> openNested(const Archive& outer, const Member& member, OutputBudget& budget);

}  // namespace zip
