#pragma once
#include <span>

#include "platform/PlatformCheck.h"

namespace check {

/// One row for each name of a finding.
std::span<const teq_platform::CheckExplanation> explanations();

}  // namespace check
