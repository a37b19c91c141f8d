// fmt's sources, compiled once here instead of linking its library; other files include its light header.
#define FMT_HEADER_ONLY 1
#include <fmt/format.h>

namespace text {

// Referring to it makes the compiler emit it.
extern std::string (*const kVformat)(fmt::string_view, fmt::format_args);
std::string (*const kVformat)(fmt::string_view, fmt::format_args) = fmt::vformat;

}  // namespace text
