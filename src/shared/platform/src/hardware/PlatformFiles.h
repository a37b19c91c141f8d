#pragma once
#include <string>

class HTEQHardwarePlatform;

namespace archive {
class MemberSource;
}

/// Members of a platform's archive. What cannot be opened, read or written answers false or "": no exception of the
/// archive or of the disk leaves these functions.
namespace hardware {

bool hasMember(const std::string& archive, const std::string& member);
/// The member's whole text, of at most 32 MiB. A warning names one that is damaged or larger.
std::string memberText(const std::string& archive, const std::string& member);
/// Copies a member to a path of the caller's choice, and makes its directory. A failure leaves no file.
bool copyMember(const std::string& archive, const std::string& member, const std::string& destination);
bool copyMember(const archive::MemberSource& source, const std::string& member, const std::string& destination);
/// Unpacks an archive's directory below the temporary directory; its path there, "" when it is not there afterwards.
std::string unpackDirectory(const std::string& archive, const std::string& directory);

/// The member of that name as a platform has it: a child emulation platform keeps its files in the emulation
/// directory.
std::string memberOf(const HTEQHardwarePlatform& platform, const std::string& member);
/// Copies the platform's file of a type; false when it lists none.
bool copyFileOfType(const HTEQHardwarePlatform& platform, const std::string& type, const std::string& destination);

}  // namespace hardware
