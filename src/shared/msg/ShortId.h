#pragma once
#include <string_view>

namespace msg {

/// An id without its argument format: "74-60" of "@74-60@%s"; empty for a plain text.
inline std::string_view shortId(std::string_view id) { return id.empty() ? id : id.substr(1, id.rfind('@') - 1); }

}  // namespace msg
