#include "hardware/RomNumbers.h"

#include <charconv>
#include <limits>
#include <string_view>

#include "text/HSTStringUtils.h"
#include "util/HUTConvert.h"

namespace hardware {

std::string romHex(std::uint64_t value) {
    std::string digits;
    HUTConvert::dataToHexLittleEndian(&value, sizeof value, digits);
    return "0x" + HUTConvert::trimLeading(digits, '0');
}

std::uint64_t romNumber(const std::string& text) {
    const std::string_view trimmed = HSTStringUtils::trim(text);
    if (trimmed.starts_with('-') || trimmed.starts_with('+'))
        return static_cast<std::uint64_t>(HSTStringUtils::toNumber(trimmed));
    const bool hexadecimal = trimmed.starts_with("0x") || trimmed.starts_with("0X");
    std::uint64_t value = 0;
    const auto result = std::from_chars(trimmed.data() + (hexadecimal ? 2 : 0), trimmed.data() + trimmed.size(),
                                        value, hexadecimal ? 16 : 10);
    return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max() : value;
}

}  // namespace hardware
