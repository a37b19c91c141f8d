#pragma once
#include <string>

class HTEQHardwarePlatform;

namespace archive {
class MemberSource;
}

/// Members of a platform's archive. What cannot be opened, read or written gives false or "": these functions do not
/// throw exceptions of the archive or the file system.
namespace hardware {

bool hasMember(const std::string& archive, const std::string& member);
/// The member's whole text, of at most 32 MiB. A warning names one that is damaged or larger.
std::string memberText(const std::string& archive, const std::string& member);
/// Copies a member to a path chosen by the caller, and makes its directory. A failure leaves no file.
bool copyMember(const std::string& archive, const std::string& member, const std::string& destination);
bool copyMember(const archive::MemberSource& source, const std::string& member, const std::string& destination);
/// Extracts an archive's directory below the temporary directory and returns its path there; "" on failure.
std::string unpackDirectory(const std::string& archive, const std::string& directory);

/// The full name of a platform's member: the files of a child emulation platform are in the emulation directory.
std::string memberOf(const HTEQHardwarePlatform& platform, const std::string& member);
/// Copies the platform's file of a type; false if none is listed.
bool copyFileOfType(const HTEQHardwarePlatform& platform, const std::string& type, const std::string& destination);

}  // namespace hardware
