#pragma once
#include <string>

#include "platform/HTEQSystemClock.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

/// Finds clocks; if several have the same name or id, the last one is used.
namespace hardware {

using Clocks = Owned<HTEQSystemClock>;

/// Null if there is none.
HTEQSystemClock* clockById(const Clocks& clocks, int id);
HTEQSystemClock* clockByName(const Clocks& clocks, const std::string& name);
bool hasScalableClock(const Clocks& clocks);
bool hasFixedClock(const Clocks& clocks);

}  // namespace hardware
