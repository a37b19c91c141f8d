#include "platform/PathToken.h"

#include <algorithm>

#include "text/HSTStringUtils.h"

namespace teq::platform {
namespace {

PathToken tokenOf(std::string_view piece) {
    constexpr std::size_t kMaxIndex = 6;
    const auto open = piece.rfind('[');
    if (open == std::string_view::npos || !piece.substr(open + 1).ends_with(']')) return {std::string(piece)};
    PathToken token{std::string(piece.substr(0, open))};
    const std::string_view index = piece.substr(open + 1, piece.size() - open - 2);
    if (index.size() > kMaxIndex) return token;
    token.hasIndex = true;
    token.index = static_cast<std::int32_t>(HSTStringUtils::toNumber(index));
    return token;
}

}  // namespace

HSTVector<PathToken> scanJsonPath(std::string_view path) {
    HSTVector<PathToken> tokens;
    tokens.reserve(1 + static_cast<std::size_t>(std::ranges::count(path, '.')));
    for (std::size_t begin = 0, end; begin != std::string_view::npos; begin = end) {
        end = path.find('.', begin);
        tokens.push_back(tokenOf(path.substr(begin, end - begin)));
        if (end != std::string_view::npos) ++end;
    }
    return tokens;
}

std::string withoutMarkers(std::string_view path) {
    std::string result;
    for (auto open = path.find('['); open != std::string_view::npos; open = path.find('[')) {
        result += path.substr(0, open);
        path.remove_prefix(open);
        const std::size_t marker = path.starts_with("[]") ? 2 : path.starts_with("[*]") ? 3 : 0;
        if (marker == 0) result += '[';
        path.remove_prefix(std::max<std::size_t>(marker, 1));
    }
    return result += path;
}

}  // namespace teq::platform
