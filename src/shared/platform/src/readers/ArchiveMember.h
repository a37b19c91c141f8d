#pragma once
#include <string>
#include <string_view>

namespace readers {

/// The name of a member without the "./" that some archives' metadata puts in front: one character of any kind and
/// all slashes behind it are cut off, unless the name has a line end.
std::string_view withoutLeadingDot(std::string_view member);

/// The bytes of a member, its name taken without the leading dot. Throws `HEXError` ("@74-34@%s%s") when the archive
/// or the member cannot be opened.
std::string textOfMember(const std::string& archive, const std::string& member);

}  // namespace readers
