#pragma once
#include <cstdint>
#include <string>

/// The numbers of a feature ROM as texts.
namespace hardware {

/// "0x" and the digits without leading zeros, in lower case; just "0x" for 0.
std::string romHex(std::uint64_t value);
/// A number of the metadata: hexadecimal after "0x", else decimal. What follows the digits is ignored, no digits give
/// 0, a number that is too large gives the maximum.
std::uint64_t romNumber(const std::string& text);

}  // namespace hardware
