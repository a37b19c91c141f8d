#pragma once
#include <span>
#include <string_view>

namespace check {

/// Meaning and remedy of a message, in addition to its text in the catalogue.
struct MessageNote {
    std::string_view id;  ///< without its argument format, "74-60"
    const char* meaning;
    const char* advice;
    const char* check;  ///< the finding whose samples illustrate it, or null
};

std::span<const MessageNote> messageNotes();

}  // namespace check
