#pragma once
#include <cstdint>
#include <string>

/// The numbers of a feature ROM as texts.
namespace hardware {

/// "0x" and the digits without leading zeros, in lower case: 0 is the bare "0x".
std::string romHex(std::uint64_t value);
/// A number of the metadata: hexadecimal after "0x", else decimal. What follows the digits is ignored, no digits give
/// 0, too large a number gives the largest.
std::uint64_t romNumber(const std::string& text);

}  // namespace hardware
