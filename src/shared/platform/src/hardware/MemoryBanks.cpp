#include "hardware/MemoryBanks.h"

#include <map>
#include <vector>

#include "msg/Budget.h"
#include "text/HSTStringUtils.h"

namespace hardware {

bool isIndexedMemory(const HTEQHardwareBusInterface& bus) {
    return HSTStringUtils::iequals(bus.getMemPort(), "memss");
}

bool isNonIndexedMemory(const HTEQHardwareBusInterface& bus) {
    const std::string& port = bus.getMemPort();
    return !port.empty() && !isIndexedMemory(bus) && !HSTStringUtils::iequals(port, "m_axi_gp") &&
           !HSTStringUtils::iequals(port, "s_axi_gp") && !HSTStringUtils::iequals(bus.getSPTag(), "default");
}

std::optional<bool> isMemoryIndexed(const BusInterfaces& buses) {
    for (const HTEQHardwareBusInterface* bus : buses) {
        if (isIndexedMemory(*bus)) return true;
        if (isNonIndexedMemory(*bus)) return false;
    }
    return std::nullopt;
}

bool MemoryBanks::counts(const HTEQHardwareBusInterface& bus) const {
    return indexed_ ? isIndexedMemory(bus) : isNonIndexedMemory(bus);
}

std::set<std::string> MemoryBanks::types() const {
    std::set<std::string> types;
    for (const HTEQHardwareBusInterface* bus : buses_)
        if (counts(*bus)) types.insert(indexed_ ? HSTStringUtils::toUpper(bus->getSPTag()) : bus->getSPTag());
    return types;
}

bool MemoryBanks::knows(const std::string& type) const {
    return buses_.first([&](const HTEQHardwareBusInterface& bus) {
        return counts(bus) && (indexed_ ? HSTStringUtils::toUpper(bus.getSPTag()) : bus.getSPTag()) == type;
    });
}

const HTEQHardwareBusInterface* MemoryBanks::last(const std::string& type, unsigned n) const {
    if (!knows(type)) return nullptr;
    return buses_.last([&](const HTEQHardwareBusInterface& bus) {
        return counts(bus) && HSTStringUtils::iequals(bus.getSPTag(), type) &&
               (!indexed_ || n < bus.getNumAddressSegments());
    });
}

unsigned MemoryBanks::count(const std::string& type) const {
    if (!knows(type)) return 0;
    if (!indexed_) return 1;
    const auto* first = buses_.first([&](const HTEQHardwareBusInterface& bus) {
        return counts(bus) && HSTStringUtils::iequals(bus.getSPTag(), type);
    });
    return first->getNumAddressSegments();
}

unsigned MemoryBanks::index(const std::string& type, unsigned n) const {
    const auto* bus = indexed_ ? last(type, n) : nullptr;
    return bus ? bus->getMemoryIndex(n) : 0;
}

std::string MemoryBanks::sizeOf(const HTEQHardwareBusInterface& bus) const {
    // Banks of an indexed platform have a fixed size, which is not in any file.
    return indexed_ ? "16GB" : bus.getSize();
}

std::string MemoryBanks::slrOf(const HTEQHardwareBusInterface& bus, unsigned n) const {
    return indexed_ ? bus.getMemorySLR(n) : bus.getSLR();
}

std::string MemoryBanks::size(const std::string& type, unsigned n) const {
    const auto* bus = last(type, n);
    return bus ? sizeOf(*bus) : std::string();
}

std::string MemoryBanks::slr(const std::string& type, unsigned n) const {
    const auto* bus = last(type, n);
    return bus ? slrOf(*bus, n) : std::string();
}

HSTVector<HTEQHardwarePlatform::MemoryBank> MemoryBanks::all() const {
    using Buses = std::vector<const HTEQHardwareBusInterface*>;
    std::map<std::string, Buses> byLowerType;
    for (const HTEQHardwareBusInterface* bus : buses_)
        if (counts(*bus)) byLowerType[HSTStringUtils::toLower(bus->getSPTag())].push_back(bus);
    HSTVector<HTEQHardwarePlatform::MemoryBank> banks;
    const Budget budget;  // each bank repeats texts of its interface
    for (const std::string& type : types()) {
        const Buses& buses = byLowerType[HSTStringUtils::toLower(type)];
        const unsigned count = indexed_ ? buses.front()->getNumAddressSegments() : 1;
        std::size_t at = buses.size();  // the last interface with bank n; moves to the front only
        for (unsigned n = 0; n < count; ++n) {
            if (n == 0 || buses[at]->getNumAddressSegments() <= n) do
                    --at;
                while (indexed_ && buses[at]->getNumAddressSegments() <= n);
            HTEQHardwarePlatform::MemoryBank bank{type, n, sizeOf(*buses[at]), slrOf(*buses[at], n)};
            Budget::spend(Cost::text, bank.type.size() + bank.size.size() + bank.slr.size());
            banks.push_back(std::move(bank));
        }
    }
    return banks;
}

std::string partlyDefaultHbmText(const std::string& instance) {
    return "\n\nThe HBM instance '" + instance +
           "' has only a subset of its auto-assignable memory banks tagged as 'default'. "
           "To attain better HBM bandwidth, use mirac parameter "
           "'--advanced.param compiler.normalizeDefaultMemoryBanks=true' to change all HBM memory banks to "
           "'default'.";
}

}  // namespace hardware
