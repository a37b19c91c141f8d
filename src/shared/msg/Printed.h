#pragma once
#include <iostream>
#include <string_view>

#include "msg/Silence.h"
#include "msg/WriteSignals.h"
#include "text/HSTStringUtils.h"

namespace msg {

/// Prints lines that contain untrusted text; control characters are escaped.
inline void printTo(std::ostream& out, std::string_view lines) {
    if (Silence::isKept()) return;
    const WriteSignals signals;
    while (!lines.empty()) {
        const auto end = lines.find('\n');
        out << HSTStringUtils::printable(lines.substr(0, end));
        if (end == std::string_view::npos) break;
        out << '\n';
        lines.remove_prefix(end + 1);
    }
    signals.takeBack();
}
inline void print(std::string_view lines) { printTo(std::cout, lines); }
inline void printError(std::string_view lines) { printTo(std::cerr, lines); }

}  // namespace msg
