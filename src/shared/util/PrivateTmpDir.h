#pragma once
#include <string>

/// The private temporary directory of the process.
namespace util {

/// A directory in it for the calling thread only. Throws `HEXUserException` if it cannot be made.
std::string privateTmpDirOfThread();

}  // namespace util
