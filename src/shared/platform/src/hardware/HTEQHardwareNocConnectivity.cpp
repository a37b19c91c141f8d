#include "platform/HTEQHardwareNocConnectivity.h"

#include "hardware/HardwareKeys.h"
#include "platform/HTEQHardwareBusInterface.h"

namespace {

using Noc = HTEQHardwareNocConnectivity;
using K = json::Keys<Noc>;

constexpr json::Key<Noc> kKeys[] = {
    K::text<&Noc::getInstanceRef, &Noc::setInstanceRef>("instRef"),
    K::objects<&Noc::createBusInterfaceIter, &Noc::addBusInterface>("busInterfaces"),
};

}  // namespace

template <>
std::span<const json::Key<Noc>> json::keysOf<Noc>() {
    return kKeys;
}

HTEQHardwareNocConnectivity::HTEQHardwareNocConnectivity() = default;
HTEQHardwareNocConnectivity::~HTEQHardwareNocConnectivity() = default;

void HTEQHardwareNocConnectivity::toJSON(teq_platform::JSONObjectWriter& writer) const {
    json::writeKeys(writer, kKeys, *this);
}

HTEQHardwareBusInterface* HTEQHardwareNocConnectivity::addBusInterface() { return busInterfaces_.add(); }

void HTEQHardwareNocConnectivity::getBusInterfaces(HSTVector<HTEQHardwareBusInterface*>& out) const {
    out.insert(out.end(), busInterfaces_.begin(), busInterfaces_.end());
}

HSTFwdIter<HTEQHardwareBusInterface*>* HTEQHardwareNocConnectivity::createBusInterfaceIter() const {
    return busInterfaces_.makeIter();
}

HTEQHardwareBusInterface* HTEQHardwareNocConnectivity::getBusInterfaceByName(const std::string& name) const {
    return busInterfaces_.first([&](const HTEQHardwareBusInterface& bus) { return bus.getName() == name; });
}
