#include "platform/HTEQHardwareAddressSegment.h"

#include "hardware/HardwareKeys.h"

namespace {

using Segment = HTEQHardwareAddressSegment;
using K = json::Keys<Segment>;

constexpr json::Key<Segment> kKeys[] = {
    K::text<&Segment::getBaseName, &Segment::setBaseName>("baseName"),
    K::number<&Segment::getIndex, &Segment::setIndex>("index"),
    K::text<&Segment::getMemoryInstance, &Segment::setMemoryInstance>("memoryInstance"),
    K::text<&Segment::getAuto, &Segment::setAuto>("auto"),
    K::text<&Segment::getSpTag, &Segment::setSpTag>("spTag"),
    K::text<&Segment::getSlr, &Segment::setSlr>("slr"),
    K::number<&Segment::getMaxMasters, &Segment::setMaxMasters>("maxMasters"),
    K::text<&Segment::getName, &Segment::setName>("name"),
    K::text<&Segment::getInstanceRef, &Segment::setInstanceRef>("instRef"),
    K::text<&Segment::getRegion, &Segment::setRegion>("region"),
    K::number<&Segment::getReadBwUsed, &Segment::setReadBwUsed>("readBwUsed"),
    K::number<&Segment::getWriteBwUsed, &Segment::setWriteBwUsed>("writeBwUsed"),
    K::number<&Segment::getInterleave, &Segment::setInterleave>("interleave"),
};

}  // namespace

template <>
std::span<const json::Key<Segment>> json::keysOf<Segment>() {
    return kKeys;
}

void HTEQHardwareAddressSegment::toJSON(teq_platform::JSONObjectWriter& writer) const {
    json::writeKeys(writer, kKeys, *this);
}
