#pragma once
#include <string>

#include "zip/Archive.h"
#include "zip/HUTZip.h"

namespace zip {

/// Compares each member's bytes with its CRC and digest.
HUTZip::Verification checkArchive(const Archive& archive);

/// Why other readers do not write the member under its name; empty if they do. Without a digest, a name may be in an
/// encoding of its own, which every reader shows as it can.
std::string nameFault(const Archive& archive, const Member& member, bool hasDigest);

}  // namespace zip
