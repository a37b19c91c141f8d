#pragma once
#include <cstddef>

namespace text {

/// What an exception keeps of a text at most: it may quote a value of many megabytes, and is copied on its way to the
/// caller. No member of an archive has so long a name.
inline constexpr std::size_t kMaxQuoted = 1 << 16;

}  // namespace text
