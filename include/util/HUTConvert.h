#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "text/ZrApi.h"

/// Number texts.
class ZR_API HUTConvert {
public:
    /// The hexadecimal digits, in lower case, of a number stored as `size` bytes in little-endian order: the digits
    /// of the last byte come first. Two digits per byte, no prefix.
    static void dataToHexLittleEndian(const void* data, std::size_t size, std::string& out);
    /// `text` from the first character that is not `character`; empty for "0000" and '0'.
    static std::string trimLeading(std::string_view text, char character);
};
