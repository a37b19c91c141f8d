#pragma once
#include <span>

#include "platform/PlatformCheck.h"

namespace check {

/// One row for each name that a finding can have.
std::span<const teq_platform::CheckExplanation> explanations();

}  // namespace check
