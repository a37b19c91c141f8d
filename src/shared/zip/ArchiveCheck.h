#pragma once
#include "zip/Archive.h"
#include "zip/HUTZip.h"

namespace zip {

/// Compares each member's bytes with its CRC and digest.
HUTZip::Verification checkArchive(const Archive& archive);

}  // namespace zip
