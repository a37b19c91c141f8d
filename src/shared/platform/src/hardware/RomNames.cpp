#include "hardware/RomNames.h"

#include <algorithm>

#include "text/HSTStringUtils.h"

namespace hardware {

RomName romName(const std::string& text) {
    RomName name;
    std::ranges::copy(HSTStringUtils::utf8Prefix(text, sizeof name.bytes - 1), name.bytes);
    return name;
}

std::string romNameText(const unsigned char* field) {
    return {field, std::find(field, field + HTEQHardwareFeatureRom::kNameSize, '\0')};
}

}  // namespace hardware
