#include "platform/HPLPCIeId.h"

#include "hardware/HardwareKeys.h"

namespace {

using Ids = HPLPCIeId;
using K = json::Keys<Ids>;

constexpr json::Key<Ids> kKeys[] = {
    K::text<&Ids::getVendor, &Ids::setVendor>("vendor"),
    K::text<&Ids::getDevice, &Ids::setDevice>("device"),
    K::text<&Ids::getSubsystem, &Ids::setSubsystem>("subsystem"),
    K::text<&Ids::getFeatureId, &Ids::setFeatureId>("featureId"),
};

}  // namespace

template <>
std::span<const json::Key<Ids>> json::keysOf<Ids>() {
    return kKeys;
}

void HPLPCIeId::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }
