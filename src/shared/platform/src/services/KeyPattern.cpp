#include "services/KeyPattern.h"

namespace services {

std::string withAnyIndex(std::string_view key) {
    std::string result;
    std::size_t at = 0;
    for (std::size_t open; (open = key.find('[', at)) != std::string_view::npos;) {
        const std::string_view line = key.substr(open, key.find_first_of("\n\r", open) - open);
        const auto close = line.rfind(']');
        const bool isMatch = close != std::string_view::npos;
        result += key.substr(at, open - at);
        result += isMatch ? "[*]" : line;
        at = open + (isMatch ? close + 1 : line.size());
    }
    return result.append(key.substr(at));
}

}  // namespace services
