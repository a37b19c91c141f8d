#include "platform/HTEQHardwareBusInterface.h"

#include "hardware/HardwareKeys.h"
#include "platform/HTEQHardwareAddressSegment.h"

namespace {

using Bus = HTEQHardwareBusInterface;
using K = json::Keys<Bus>;

HSTVector<HTEQHardwareAddressSegment*> segmentsOf(const Bus& bus) {
    HSTVector<HTEQHardwareAddressSegment*> segments;
    bus.getAddressSegments(segments);
    return segments;
}

constexpr json::Key<Bus> kKeys[] = {
    K::text<&Bus::getName, &Bus::setName>("name"),
    K::text<&Bus::getMode, &Bus::setMode>("mode"),
    K::text<&Bus::getInstRef, &Bus::setInstRef>("instRef"),
    K::text<&Bus::getCompRef, &Bus::setCompRef>("compRef"),
    K::text<&Bus::getBusTypeRef, &Bus::setBusTypeRef>("typeRef"),
    K::text<&Bus::getBusInterfaceRef, &Bus::setBusInterfaceRef>("interfaceRef"),
    K::text<&Bus::getClockRef, &Bus::setClockRef>("clockRef"),
    K::text<&Bus::getResetRef>("resetRef"),
    K::text<&Bus::getMemPort, &Bus::setMemPort>("memPort"),
    K::text<&Bus::getSPTag, &Bus::setSPTag>("spTag"),
    K::text<&Bus::getSLR>("slr"),
    K::text<&Bus::getMemoryInstance>("memoryInstance"),
    K::number<&Bus::getDataWidth, &Bus::setDataWidth>("dataWidth"),
    K::number<&Bus::getNumIdBits>("numIdBits"),
    ifPresent(K::text<&Bus::getAddressSegment, &Bus::setAddressSegment>("addressSegment")),
    K::text<&Bus::getDirection>("direction"),
    K::number<&Bus::getISRId>("isrId"),
    K::text<&Bus::getCategory, &Bus::setCategory>("category"),
    K::objects<&segmentsOf, &Bus::addAddressSegment>("addressSegments"),
};

}  // namespace

template <>
std::span<const json::Key<Bus>> json::keysOf<Bus>() {
    return kKeys;
}

HTEQHardwareBusInterface::HTEQHardwareBusInterface() = default;
HTEQHardwareBusInterface::~HTEQHardwareBusInterface() = default;

void HTEQHardwareBusInterface::toJSON(teq_platform::JSONObjectWriter& writer) const {
    json::writeKeys(writer, kKeys, *this);
}

HTEQHardwareAddressSegment* HTEQHardwareBusInterface::addAddressSegment() { return segments_.add(); }

unsigned HTEQHardwareBusInterface::getMemoryIndex(unsigned n) const {
    return n < segments_.size() ? segments_.items()[n]->getIndex() : 0;
}

std::string HTEQHardwareBusInterface::getMemorySLR(unsigned n) const {
    return n < segments_.size() ? segments_.items()[n]->getSlr() : std::string();
}
