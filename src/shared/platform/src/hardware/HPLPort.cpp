#include "platform/HPLPort.h"

#include "hardware/HardwareKeys.h"
#include "platform/HPLAddressSegment.h"

namespace {

using Port = HPLPort;
using K = json::Keys<Port>;

constexpr json::Key<Port> kKeys[] = {
    K::text<&Port::getName>("name"),
    K::text<&Port::getType>("type"),
    K::text<&Port::getMode>("mode"),
    K::text<&Port::getBase>("base"),
    K::text<&Port::getRange>("range"),
    K::text<&Port::getDataWidth>("dataWidth"),
    K::text<&Port::getProtocol>("protocol"),
    K::text<&Port::getIdWidth>("idWidth"),
    K::text<&Port::getAddrWidth>("addrWidth"),
    K::text<&Port::getUserWidth>("userWidth"),
    K::text<&Port::getAddrOffset>("addrOffset"),
    K::text<&Port::getAddrRange>("addrRange"),
    K::text<&Port::getMaxBurstLength>("maxBurstLength"),
    K::text<&Port::getFrequency>("frequency"),
    K::text<&Port::getPolarity>("polarity"),
    K::text<&Port::getDirection>("direction"),
};

}  // namespace

template <>
std::span<const json::Key<Port>> json::keysOf<Port>() {
    return kKeys;
}

HPLPort::HPLPort() = default;
HPLPort::~HPLPort() = default;

void HPLPort::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

void HPLPort::addAddressSegment(HPLAddressSegment* segment) {
    if (segment) segments_.take(std::unique_ptr<HPLAddressSegment>(segment));
}

HSTFwdIter<HPLAddressSegment*>* HPLPort::createAddressSegmentIter() const { return segments_.makeIter(); }
