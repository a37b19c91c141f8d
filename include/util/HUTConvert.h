#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "text/ZrApi.h"

/// Texts of numbers.
class ZR_API HUTConvert {
public:
    /// The hexadecimal digits, lower case, of a number that lies in memory as `size` bytes, the lowest first: the
    /// digits of the last byte come first. Two digits for each byte, no prefix.
    static void dataToHexLittleEndian(const void* data, std::size_t size, std::string& out);
    /// `text` from the first character that is not `character`; nothing of "0000" is left for '0'.
    static std::string trimLeading(std::string_view text, char character);
};
