#pragma once
#include "check/Findings.h"

namespace check {

/// Checks an hpfm; true when a reader takes it.
bool checkHpfm(const Source& source, Findings& findings);

}  // namespace check
