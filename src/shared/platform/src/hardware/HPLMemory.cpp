#include "platform/HPLMemory.h"

#include <algorithm>
#include <string_view>

#include "hardware/HardwareKeys.h"

namespace {

using Memory = HPLMemory;
using K = json::Keys<Memory>;

/// An address as decimal text, absent if both have their default.
template <auto Get, auto Set>
constexpr json::Key<Memory> address(const char* name) {
    return json::when<[](const Memory& memory) { return !memory.areLowAndHighAddrsAtDefault_(); }>(
        ifPresent(K::number<Get, Set>(name)));
}

constexpr json::Key<Memory> kKeys[] = {
    K::text<&Memory::getName, &Memory::setName>("name"),
    K::text<&Memory::getType, &Memory::setType>("type"),
    K::text<&Memory::getSize, &Memory::setSize>("size"),
    address<&Memory::getLowestAddress, &Memory::setLowestAddress>("lowAddress"),
    address<&Memory::getHighestAddress, &Memory::setHighestAddress>("highAddress"),
    K::pairs<&Memory::getReadOnlyConfigParamMap, &Memory::addConfigParam>("configParams"),
};

constexpr std::string_view kFixedNames[] = {
    "AXI_ARBITRATION_SCHEME", "MEMORY_PART",       "MEM_ADDR_MAP",
    "TIMEPERIOD_PS",          "DATA_WIDTH",        "CAS_LATENCY",
    "CAS_WRITE_LATENCY",      "BURST_LENGTH",      "C0.APP_ADDR_WIDTH",
    "C0.APP_DATA_WIDTH",      "C0.ControllerType",
};

/// After "C0." and the name of the family.
constexpr std::string_view kFamilySuffixes[] = {
    "_ADDR_WIDTH",
    "_AXI_ADDR_WIDTH",
    "_AXI_DATA_WIDTH",
    "_AXI_ID_WIDTH",
    "_AutoPrecharge",
    "_AxiNarrowBurst",
    "_BANK_GROUP_WIDTH",
    "_BANK_WIDTH",
    "_CL",
    "_COLUMN_WIDTH",
    "_CWL",
    "_Mem_Add_Map",
    "_Ordering",
    "_RANK_WIDTH",
    "_ROW_WIDTH",
    "_tCK",
    "_tCKE",
    "_tFAW",
    "_tMRD",
    "_tRAS",
    "_tRCD",
    "_tREFI",
    "_tRFC",
    "_tRP",
    "_tRRD",
    "_tRRD_L",
    "_tRRD_S",
    "_tRTP",
    "_tWR",
    "_tWTR",
    "_tWTR_L",
    "_tWTR_S",
    "_tXPR",
    "_tZQCS",
    "_tZQI",
    "_tZQINIT",
};
static_assert(std::size(kFixedNames) + std::size(kFamilySuffixes) == 47);

bool contains(std::span<const std::string_view> names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isPermitted(std::string_view name, const std::string& memoryType) {
    const std::string_view family = memoryType == "ddr3" ? "C0.DDR3" : "C0.DDR4";
    return contains(kFixedNames, name) ||
           (name.starts_with(family) && contains(kFamilySuffixes, name.substr(family.size())));
}

}  // namespace

template <>
std::span<const json::Key<Memory>> json::keysOf<Memory>() {
    return kKeys;
}

void HPLMemory::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

void HPLMemory::addConfigParam(const std::string& name, const std::string& value) {
    if (isPermitted(name, type_)) configParams_[name] = value;
}
