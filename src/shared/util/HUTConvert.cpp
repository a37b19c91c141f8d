#include "util/HUTConvert.h"

#include <algorithm>

void HUTConvert::dataToHexLittleEndian(const void* data, std::size_t size, std::string& out) {
    static constexpr char digits[] = "0123456789abcdef";
    const auto* const bytes = static_cast<const unsigned char*>(data);
    out.clear();
    out.reserve(2 * size);
    for (std::size_t i = size; i > 0; --i) {
        out += digits[bytes[i - 1] >> 4];
        out += digits[bytes[i - 1] & 15];
    }
}

std::string HUTConvert::trimLeading(std::string_view text, char character) {
    text.remove_prefix(std::min(text.find_first_not_of(character), text.size()));
    return std::string(text);
}
