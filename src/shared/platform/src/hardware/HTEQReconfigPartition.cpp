#include "platform/HTEQReconfigPartition.h"

#include "hardware/HardwareKeys.h"

namespace {

using Ids = HTEQReconfigPartition;
using K = json::Keys<Ids>;

/// The ids of the tile array are read only for a platform itself; see its table.
constexpr json::Key<Ids> kTilKeys[] = {
    K::numberUnlessZero<&Ids::getTILPlInterfaceID>("plInterfaceID"),
    K::numberUnlessZero<&Ids::getTILNodeID>("nodeID"),
    K::numberUnlessZero<&Ids::getTILUniqueID>("uniqueID"),
    K::numberUnlessZero<&Ids::getTILPuID>("puID"),
};

constexpr json::Key<Ids> kKeys[] = {
    K::numberUnlessZero<&Ids::getDesignID, &Ids::setDesignID>("designID"),
    K::numberUnlessZero<&Ids::getParentID, &Ids::setParentID>("parentID"),
    K::numberUnlessZero<&Ids::getNodeID, &Ids::setNodeID>("nodeID"),
    K::numberUnlessZero<&Ids::getFunctionID, &Ids::setFunctionID>("functionID"),
    K::group<kTilKeys>("tilngineIDs"),
};

}  // namespace

template <>
std::span<const json::Key<Ids>> json::keysOf<Ids>() {
    return kKeys;
}

void HTEQReconfigPartition::toJSON(teq_platform::JSONObjectWriter& writer) const {
    json::writeKeys(writer, kKeys, *this);
}
