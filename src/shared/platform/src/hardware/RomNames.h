#pragma once
#include <string>

#include "platform/HTEQHardwareFeatureRom.h"

/// The names of a feature ROM as texts.
namespace hardware {

/// The content of a name field.
struct RomName {
    unsigned char bytes[HTEQHardwareFeatureRom::kNameSize] = {};
};

/// A name of the metadata, cut after the last character that fits before the field's NUL.
RomName romName(const std::string& text);
/// The text of a name field, which may lack its NUL if the raw header was modified.
std::string romNameText(const unsigned char* field);

}  // namespace hardware
