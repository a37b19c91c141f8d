// fmt's own sources, compiled here once, so that no library of its is linked; elsewhere its light header suffices.
#define FMT_HEADER_ONLY 1
#include <fmt/format.h>

namespace text {

// Naming it makes the compiler emit it.
extern std::string (*const kVformat)(fmt::string_view, fmt::format_args);
std::string (*const kVformat)(fmt::string_view, fmt::format_args) = fmt::vformat;

}  // namespace text
