#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace text {

/// The first pieces between the separators, as `HSTStringUtils::split` gives them: at most `most`, the last one with the
/// rest of the text. For untrusted texts, of which each byte may be a separator.
inline std::vector<std::string> firstPieces(std::string_view text, char separator, std::size_t most) {
    std::vector<std::string> pieces;
    while (pieces.size() + 1 < most) {
        const auto end = text.find(separator);
        if (end == std::string_view::npos) break;
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    pieces.emplace_back(text);
    return pieces;
}

}  // namespace text
