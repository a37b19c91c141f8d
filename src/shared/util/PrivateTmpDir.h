#pragma once
#include <string>

/// The private temporary directory of the process.
namespace util {

/// A directory of the calling thread alone in it. Throws `HEXUserException` when it cannot be made.
std::string privateTmpDirOfThread();

}  // namespace util
