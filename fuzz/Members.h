#pragma once
#include <algorithm>
#include <string>
#include <string_view>

#include "kit/ZipBuilder.h"

/// An archive of the members in `text`: each follows a line "--- NAME". The text before the first such line, often
/// all of it, is the member `first`.
inline std::string archiveOf(std::string_view text, const std::string& first) {
    constexpr std::string_view kMark = "\n--- ";
    builder::Zip zip;
    std::string name = first;
    for (;;) {
        const auto end = text.find(kMark);
        zip.entries.emplace_back(name, std::string(text.substr(0, end)));
        if (end == std::string_view::npos) return zip.build();
        text.remove_prefix(end + kMark.size());
        const auto line = std::min(text.find('\n'), text.size());
        name = text.substr(0, line);
        text.remove_prefix(std::min(line + 1, text.size()));
    }
}
