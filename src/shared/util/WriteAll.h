#pragma once
#include <cstdint>
#include <string_view>

/// Writing to a descriptor from inside somebody else's process: a file that may not grow and a pipe that nobody reads are
/// errors here, not signals (msg/WriteSignals.h).
namespace util {

/// Writes all of `bytes` at the file's position. Returns 0 or the error number.
int writeAll(int file, std::string_view bytes);
/// The same, from `offset`.
int writeAllAt(int file, std::uint64_t offset, std::string_view bytes);

}  // namespace util
