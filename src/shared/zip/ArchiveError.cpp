#include "zip/ArchiveError.h"

#include <fmt/format.h>

#include <utility>

namespace {

/// A member's name is a stranger's text: what a terminal would obey is shown as a number.
std::string printable(const std::string& name) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7f)
            text += c;
        else
            text += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
    }
    return text;
}

}  // namespace

zip::ArchiveError::ArchiveError(std::string archive, std::string member, std::string text)
    : HEXDataException(member.empty() ? fmt::format("{}: {}", archive, text)
                                      : fmt::format("{}!{}: {}", archive, printable(member), text)),
      archive_(std::move(archive)),
      member_(std::move(member)),
      text_(std::move(text)) {}

zip::ArchiveError::~ArchiveError() = default;
