#pragma once
#include <string>

#include "platform/HTEQHardwarePlatform.h"

/// The states of a platform and what follows from them.
namespace hardware {

/// Compared exactly; any other text is `other`.
HTEQHardwarePlatform::PlatformState stateOf(const std::string& text);
/// Empty for `other`.
std::string stateText(HTEQHardwarePlatform::PlatformState state);
/// An expandable data-centre platform without partial reconfiguration that is in `state`.
bool isFlatShellIn(const HTEQHardwarePlatform& platform, HTEQHardwarePlatform::PlatformState state);

}  // namespace hardware
