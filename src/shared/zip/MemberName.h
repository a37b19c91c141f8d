#pragma once
#include <string>
#include <string_view>

namespace zip {

/// Whether a member of this name may be written below a directory, as "directory/name": empty if it may, else the
/// reason as a text to follow "the name". Every extraction checks this. `hasData`: a name that ends in "/" is a
/// directory's, which must not have data.
std::string_view memberNameFault(std::string_view name, bool hasData);

/// The same for names in any encoding.
std::string_view memberPathFault(std::string_view name, bool hasData);

/// The same for names in an archive with a digest, which other readers must not change.
std::string_view digestNameFault(std::string_view name, bool hasData);

bool isAscii(char c);

/// Whether the text is valid UTF-8: shortest forms, no surrogates.
bool isUtf8(std::string_view text);

}  // namespace zip
