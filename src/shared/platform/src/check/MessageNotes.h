#pragma once
#include <span>
#include <string_view>

namespace check {

/// What a user can make of a message of the library, beside its text in the catalogue.
struct MessageNote {
    std::string_view id;  ///< without its argument format, "74-60"
    const char* meaning;
    const char* advice;
    const char* check;  ///< name of a finding whose samples show it; null when there is none
};

std::span<const MessageNote> messageNotes();

}  // namespace check
