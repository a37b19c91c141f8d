#pragma once
#include <iostream>
#include <string_view>

#include "msg/Silence.h"
#include "text/HSTStringUtils.h"

namespace readers {

/// Prints lines that contain untrusted text; control characters are escaped.
inline void print(std::string_view lines) {
    if (msg::Silence::isKept()) return;
    while (!lines.empty()) {
        const auto end = lines.find('\n');
        std::cout << HSTStringUtils::printable(lines.substr(0, end));
        if (end == std::string_view::npos) return;
        std::cout << '\n';
        lines.remove_prefix(end + 1);
    }
}

}  // namespace readers
