#pragma once
#include <string>
#include <string_view>

namespace archive {

/// The packed form of a text: the eight bytes "ZRXPACK1", then a zlib stream.

/// The most that a packed text may hold, in bytes.
inline constexpr std::size_t kMaxPackedText = 1 << 20;

std::string packedText(std::string_view text);
/// The text in packed bytes. Throws `HEXFileFault` that names `file` if they are not in this form, are damaged, or hold
/// more than `kMaxPackedText`.
std::string unpackedText(std::string_view bytes, const std::string& file);
/// The text in a file. Throws `HEXUserException` if the file cannot be read.
std::string readPackedText(const std::string& file);

}  // namespace archive
