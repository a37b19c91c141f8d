#pragma once
#include <string>
#include <string_view>

namespace readers {

/// The name of a member without the leading "./" of some archives' metadata: removes one leading character of any kind
/// and all slashes after it, unless the name contains a newline.
std::string_view withoutLeadingDot(std::string_view member);

/// The bytes of a member, whose name is used without the leading dot. Throws `HEXError` ("@74-34@%s%s") if the archive
/// or the member cannot be opened.
std::string textOfMember(const std::string& archive, const std::string& member);

}  // namespace readers
