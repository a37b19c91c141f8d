#include "platform/HTEQTilPartition.h"

#include <algorithm>
#include <tuple>

#include "hardware/HardwareKeys.h"

namespace {

using Partition = HTEQTilPartition;
using K = json::Keys<Partition>;

constexpr int (Partition::*kStart)() const = &Partition::startColumn;
constexpr void (Partition::*kSetStart)(int) = &Partition::startColumn;
constexpr int (Partition::*kNum)() const = &Partition::numColumns;
constexpr void (Partition::*kSetNum)(int) = &Partition::numColumns;
constexpr const std::string& (Partition::*kTilInst)() const = &Partition::tilInst;
constexpr void (Partition::*kSetTilInst)(std::string) = &Partition::tilInst;
constexpr const std::string& (Partition::*kUuid)() const = &Partition::uuid;
constexpr void (Partition::*kSetUuid)(std::string) = &Partition::uuid;
constexpr const std::string& (Partition::*kInterface)() const = &Partition::plIntefaceID;
constexpr void (Partition::*kSetInterface)(std::string) = &Partition::plIntefaceID;

constexpr json::Key<Partition> kKeys[] = {
    K::text<kTilInst, kSetTilInst>("tilInst"),
    K::number<kStart, kSetStart>("startColumn"),
    K::number<kNum, kSetNum>("numColumns"),
    K::text<kUuid, kSetUuid>("uuid"),
    K::text<kInterface, kSetInterface>("til_pl_intf_id"),
};

}  // namespace

template <>
std::span<const json::Key<Partition>> json::keysOf<Partition>() {
    return kKeys;
}

void HTEQTilPartition::fromJSON(const boost::property_tree::ptree& object) {
    isRoot(true);
    json::readKeys(object, kKeys, *this);
}

void HTEQTilPartition::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

HTEQTilPartition& HTEQTilPartition::addPartition(int startColumn, int numColumns) {
    return partitions_.emplace_back(startColumn, numColumns);
}

const HTEQTilPartition& HTEQTilPartition::findPartition(int startColumn, int numColumns) const {
    const auto at = std::find_if(partitions_.begin(), partitions_.end(), [&](const HTEQTilPartition& child) {
        return child.startColumn_ == startColumn && child.numColumns_ == numColumns;
    });
    return at != partitions_.end() ? *at : none();
}

bool HTEQTilPartition::hasPartition(const std::string& tilInst) const {
    return std::any_of(partitions_.begin(), partitions_.end(),
                       [&](const HTEQTilPartition& child) { return child.tilInst_ == tilInst; });
}

bool HTEQTilPartition::operator==(const HTEQTilPartition& other) const {
    const auto fields = [](const HTEQTilPartition& p) {
        return std::tie(p.root_, p.startColumn_, p.numColumns_, p.tilInst_, p.uuid_, p.plIntefaceID_, p.partitions_);
    };
    return fields(*this) == fields(other);
}

const HTEQTilPartition& HTEQTilPartition::none() {
    static const HTEQTilPartition partition;
    return partition;
}
