#include "hardware/RomNames.h"

#include <algorithm>

namespace hardware {

RomName romName(const std::string& text) {
    RomName name;
    std::copy_n(text.begin(), std::min(text.size(), sizeof name.bytes - 1), name.bytes);
    return name;
}

std::string romNameText(const unsigned char* field) {
    return {field, std::find(field, field + HTEQHardwareFeatureRom::kNameSize, '\0')};
}

}  // namespace hardware
