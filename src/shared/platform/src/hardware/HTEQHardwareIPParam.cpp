#include "platform/HTEQHardwareIPParam.h"

#include "hardware/HardwareKeys.h"

namespace {

using Param = HTEQHardwareIPParam;
using K = json::Keys<Param>;

constexpr json::Key<Param> kKeys[] = {
    K::text<&Param::getName, &Param::setName>("name"),
    K::text<&Param::getValue, &Param::setValue>("value"),
    K::text<&Param::getInstRef, &Param::setInstRef>("instRef"),
    K::text<&Param::getCompRef, &Param::setCompRef>("compRef"),
    K::text<&Param::getIsValid, &Param::setIsValid>("valid"),
};

}  // namespace

template <>
std::span<const json::Key<Param>> json::keysOf<Param>() {
    return kKeys;
}

void HTEQHardwareIPParam::toJSON(teq_platform::JSONObjectWriter& writer) const {
    json::writeKeys(writer, kKeys, *this);
}
