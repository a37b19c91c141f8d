#pragma once
#include <optional>
#include <set>
#include <string>

#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwarePlatform.h"
#include "text/Owned.h"

/// The memory banks, as derived from the bus interfaces. On an indexed platform the interfaces with the memory port
/// "memss" are the memory types and their address segments the banks; on any other, each memory interface is one
/// bank.
namespace hardware {

using BusInterfaces = Owned<HTEQHardwareBusInterface>;

bool isIndexedMemory(const HTEQHardwareBusInterface& bus);
bool isNonIndexedMemory(const HTEQHardwareBusInterface& bus);
/// As determined by the first memory interface; no value if there is none.
std::optional<bool> isMemoryIndexed(const BusInterfaces& buses);

/// Queries over the banks of a platform for which this has been determined.
class MemoryBanks {
public:
    MemoryBanks(const BusInterfaces& buses, bool indexed) : buses_(buses), indexed_(indexed) {}

    /// In upper case on an indexed platform, else unchanged.
    std::set<std::string> types() const;
    /// A type that is not exactly in `types` gives 0 or "".
    unsigned count(const std::string& type) const;
    unsigned index(const std::string& type, unsigned n) const;
    std::string size(const std::string& type, unsigned n) const;
    std::string slr(const std::string& type, unsigned n) const;
    /// What these give for every bank, in linear time.
    HSTVector<HTEQHardwarePlatform::MemoryBank> all() const;

private:
    bool counts(const HTEQHardwareBusInterface& bus) const;
    bool knows(const std::string& type) const;
    /// The last interface of the type; on an indexed platform the last with a bank `n`.
    const HTEQHardwareBusInterface* last(const std::string& type, unsigned n) const;
    std::string sizeOf(const HTEQHardwareBusInterface& bus) const;
    std::string slrOf(const HTEQHardwareBusInterface& bus, unsigned n) const;

    const BusInterfaces& buses_;
    bool indexed_;
};

/// The paragraph for a platform with only some of its automatic HBM banks as default banks.
std::string partlyDefaultHbmText(const std::string& instance);

}  // namespace hardware
