#pragma once
#include "zip/Archive.h"
#include "zip/HUTZip.h"

namespace zip {

/// Compares each member's bytes with what the archive says of them.
HUTZip::Verification checkArchive(const Archive& archive);

}  // namespace zip
