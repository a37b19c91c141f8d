#pragma once
#include <string>
#include <string_view>

namespace zip {

/// Whether a member of this name may be written below a directory, as "directory/name": the reason why not, fit for a
/// message behind "the name"; empty when it may. Every extraction asks here. `hasData`: a name that ends in "/" is a
/// directory's, which has none.
std::string_view memberNameFault(std::string_view name, bool hasData);

/// Whether the text is valid UTF-8: shortest forms, no surrogates.
bool isUtf8(std::string_view text);

}  // namespace zip
