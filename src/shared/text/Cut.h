#pragma once
#include <string>

#include "text/HSTStringUtils.h"

namespace text {

/// What an exception keeps of a text at most: it may quote a value of many megabytes, and is copied on its way to the
/// caller. No member of an archive has so long a name.
inline constexpr std::size_t kMaxQuoted = 1 << 16;

/// The text, or its first bytes and "...".
inline std::string cut(std::string text, std::size_t most = kMaxQuoted) {
    if (text.size() <= most) return text;
    return std::string(HSTStringUtils::utf8Prefix(text, most)) + "...";
}

}  // namespace text
