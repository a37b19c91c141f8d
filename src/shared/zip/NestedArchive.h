#pragma once
#include <memory>

#include "zip/Archive.h"

namespace zip {

/// The archive that is a member of another one. A member of up to `Archive::kMetadataBound` bytes is unpacked in
/// memory, a larger one to a temporary file without a name. Throws `ArchiveError`, and `HEXUserException` when there
/// is no room for the file.
std::unique_ptr<Archive> openNested(const Archive& outer, const Member& member, OutputBudget& budget);

}  // namespace zip
