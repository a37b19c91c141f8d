#include "platform/HPLDevice.h"

#include "hardware/HardwareKeys.h"

namespace {

using Device = HPLDevice;
using K = json::Keys<Device>;

constexpr char kFrequencyKey[] = "frequency";

constexpr json::Key<Device> kPartKeys[] = {
    K::text<&Device::getComposedPartName>("name"), K::text<&Device::getPartArch>("architecture"),
    K::text<&Device::getPartDevice>("device"),     K::text<&Device::getPartPackage>("package"),
    K::text<&Device::getPartSpeed>("speedGrade"),  K::text<&Device::getPartTempGrade>("tempGrade"),
    K::text<&Device::getPartStaPower>("staPower"), K::text<&Device::getPartRevision>("revision"),
};

constexpr json::Key<Device> kKeys[] = {
    K::text<&Device::getName, &Device::setName>("name"),
    K::text<&Device::getType, &Device::setType>("type"),
    refusing(K::text<&Device::getFpgaPart, &Device::setFpgaPart>("fpgaPart")),
    K::group<kPartKeys>("part"),
    K::numberUnlessZero<&Device::getNumSLRs, &Device::setNumSLRs>("numSLRs"),
    K::pairs<&Device::getSystemClockMap, &Device::addSystemClock, kFrequencyKey>("scalableSystemClocks"),
    required(K::object<&Device::getReadOnlyCore, &Device::getCore>("core")),
};

}  // namespace

template <>
std::span<const json::Key<Device>> json::keysOf<Device>() {
    return kKeys;
}

void HPLDevice::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }
