#include "hardware/ClockSelection.h"

namespace hardware {

HTEQSystemClock* clockById(const Clocks& clocks, int id) {
    return clocks.last([&](const HTEQSystemClock& clock) { return clock.getId() == id; });
}

HTEQSystemClock* clockByName(const Clocks& clocks, const std::string& name) {
    return clocks.last([&](const HTEQSystemClock& clock) { return clock.getName() == name; });
}

bool hasScalableClock(const Clocks& clocks) {
    return clocks.first([](const HTEQSystemClock& clock) { return clock.isScalable(); }) != nullptr;
}

bool hasFixedClock(const Clocks& clocks) {
    return clocks.first([](const HTEQSystemClock& clock) { return clock.isFixed(); }) != nullptr;
}

}  // namespace hardware
