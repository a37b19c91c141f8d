#pragma once
#include <string>

namespace check {

/// Why a memory of this size does not count towards the platform's memory; empty when it does.
std::string sizeFault(const std::string& size);

}  // namespace check
