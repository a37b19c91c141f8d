#pragma once
#include <bit>
#include <cstdint>
#include <cstring>

/// Little-endian numbers at any address, as in archives.
namespace zip {

static_assert(std::endian::native == std::endian::little);

template <class T>
T number(const char* at) {
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
}
inline std::uint16_t u16(const char* at) { return number<std::uint16_t>(at); }
inline std::uint32_t u32(const char* at) { return number<std::uint32_t>(at); }
inline std::uint64_t u64(const char* at) { return number<std::uint64_t>(at); }

/// In a 16 or 32 bit field: the value is in a zip64 field.
inline constexpr std::uint16_t kIn64As16 = 0xFFFF;
inline constexpr std::uint32_t kIn64As32 = 0xFFFFFFFF;

}  // namespace zip
