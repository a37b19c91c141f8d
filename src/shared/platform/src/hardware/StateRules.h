#pragma once
#include <string>

#include "platform/HTEQHardwarePlatform.h"

/// The states of a platform and their consequences.
namespace hardware {

/// Compared exactly; any other text is `other`.
HTEQHardwarePlatform::PlatformState stateOf(const std::string& text);
/// Empty for `other`.
std::string stateText(HTEQHardwarePlatform::PlatformState state);
/// Whether it is an expandable data-centre platform in `state` without partial reconfiguration.
bool isFlatShellIn(const HTEQHardwarePlatform& platform, HTEQHardwarePlatform::PlatformState state);

}  // namespace hardware
