#pragma once
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <type_traits>

#include "capi/Guard.h"
#include "platform/zr_platform.h"

/// Structures of the C interface begin with the size that the program was compiled with: it may know fewer fields
/// than the library, or more. Each release adds whole multiples of 8 bytes.
namespace capi {

/// A larger size is uninitialised memory.
constexpr std::size_t kMaxStruct = 4096;

inline void checkSize(std::size_t size) {
    if (size < sizeof(std::size_t) || size % 8 != 0 || size > kMaxStruct)
        wrongUse("the size of a structure is not set");
}

/// Reads an input structure. Fields that the caller's version lacks are 0; fields unknown to the library must be 0.
template <class T>
T readStruct(const T& given) {
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) % 8 == 0 && offsetof(T, size) == 0);
    checkSize(given.size);
    const char* const bytes = reinterpret_cast<const char*>(&given);
    if (given.size > sizeof(T) && std::any_of(bytes + sizeof(T), bytes + given.size, [](char c) { return c != 0; }))
        wrongUse("a structure has a field that this library does not support");
    T known{};
    std::memcpy(&known, bytes, std::min(given.size, sizeof(T)));
    return known;
}

/// Fills an output structure as far as the caller's version goes; fields unknown to the library become 0. `size` is
/// kept.
template <class T>
void writeStruct(T& to, T from) {
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) % 8 == 0 && offsetof(T, size) == 0);
    checkSize(to.size);
    from.size = to.size;
    char* const bytes = reinterpret_cast<char*>(&to);
    const std::size_t known = std::min(from.size, sizeof(T));
    std::memset(bytes + known, 0, from.size - known);
    std::memcpy(bytes, &from, known);
}

}  // namespace capi
