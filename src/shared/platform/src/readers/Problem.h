#pragma once
#include <exception>
#include <string>

#include "msg/HEXFileFault.h"

namespace readers {

/// What an exception tells of what was being read: `file`, or `member` of that archive.
FileProblem problemOf(const std::exception& e, const std::string& file, const std::string& member = "");

}  // namespace readers
