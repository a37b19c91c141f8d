#include "platform/HPLInterface.h"

#include "hardware/HardwareKeys.h"

namespace {

using Interface = HPLInterface;
using K = json::Keys<Interface>;

constexpr json::Key<Interface> kKeys[] = {
    K::text<&Interface::getId, &Interface::setId>("id"),
    K::text<&Interface::getName, &Interface::setName>("name"),
    K::text<&Interface::getType, &Interface::setType>("type"),
};

}  // namespace

template <>
std::span<const json::Key<Interface>> json::keysOf<Interface>() {
    return kKeys;
}

void HPLInterface::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }
