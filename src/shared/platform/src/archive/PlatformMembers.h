#pragma once
#include <string>

namespace archive {

/// The metadata members, whose names follow from the platform file's extension.
enum class PlatformMember { json, altJson, hwEmuJson, altHwEmuJson, xml, hwEmuXml, count_ };

/// The name of a member in a platform file with the extension `ext` (without its dot): "hw_emu/alt_lfa.json" for the
/// alternative emulation JSON of "lfa". Empty without an extension.
std::string platformMember(PlatformMember member, const std::string& ext);

}  // namespace archive
