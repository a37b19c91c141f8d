#pragma once

namespace loading {

/// What is wrong with an archive that does not have the extension of one.
inline constexpr char kRenameArchive[] = "this is a zip archive; rename it to .lfa or .cfa";

}  // namespace loading
