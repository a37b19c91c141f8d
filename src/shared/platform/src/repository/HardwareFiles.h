#pragma once
#include <memory>
#include <string>

class HPLPlatform;

namespace repository {

/// `HTEQHardwarePlatformMgr::addPlatform`.
std::unique_ptr<HPLPlatform> parseCFAFile(const std::string& file);

}  // namespace repository
