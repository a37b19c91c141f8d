#include "platform/HTEQSystemClock.h"

#include "hardware/HardwareKeys.h"
#include "text/HSTStringUtils.h"

namespace {

using Clock = HTEQSystemClock;
using K = json::Keys<Clock>;

constexpr json::Key<Clock> kKeys[] = {
    K::text<&Clock::getName, &Clock::setName>("name"),
    K::text<&Clock::getOrigName, &Clock::setOrigName>("origName"),
    K::number<&Clock::getId, &Clock::setId>("id"),
    K::text<&Clock::getFrequency, &Clock::setFrequency>("frequency"),
    K::text<&Clock::getInstRef, &Clock::setInstRef>("instRef"),
    K::text<&Clock::getCompRef, &Clock::setCompRef>("compRef"),
    K::text<&Clock::getPeriod, &Clock::setPeriod>("period"),
    K::text<&Clock::getNormalizedPeriod, &Clock::setNormalizedPeriod>("normalizedPeriod"),
    K::text<&Clock::getStatus, &Clock::setStatus>("status"),
};

}  // namespace

template <>
std::span<const json::Key<Clock>> json::keysOf<Clock>() {
    return kKeys;
}

void HTEQSystemClock::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

bool HTEQSystemClock::isScalable() const {
    return HSTStringUtils::iequals(status_, "scalable") || HSTStringUtils::iequals(status_, "changeable");
}
bool HTEQSystemClock::isFixed() const { return HSTStringUtils::iequals(status_, "fixed"); }
bool HTEQSystemClock::isReserved() const { return HSTStringUtils::iequals(status_, "reserved"); }
