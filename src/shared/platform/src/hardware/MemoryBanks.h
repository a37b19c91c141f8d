#pragma once
#include <optional>
#include <set>
#include <string>

#include "platform/HTEQHardwareBusInterface.h"
#include "text/Owned.h"

/// The memory banks as the bus interfaces tell them. On an indexed platform the interfaces with the memory port
/// "memss" are the memory types and their address segments the banks; on any other, each memory interface is one
/// bank.
namespace hardware {

using BusInterfaces = Owned<HTEQHardwareBusInterface>;

bool isIndexedMemory(const HTEQHardwareBusInterface& bus);
bool isNonIndexedMemory(const HTEQHardwareBusInterface& bus);
/// What the first memory interface says; nothing when there is none.
std::optional<bool> isMemoryIndexed(const BusInterfaces& buses);

/// Queries over the banks of a platform whose memory index is decided.
class MemoryBanks {
public:
    MemoryBanks(const BusInterfaces& buses, bool indexed) : buses_(buses), indexed_(indexed) {}

    /// In upper case on an indexed platform, else as they stand.
    std::set<std::string> types() const;
    /// A type that `types` does not hold exactly gives 0 or "".
    unsigned count(const std::string& type) const;
    unsigned index(const std::string& type, unsigned n) const;
    std::string size(const std::string& type, unsigned n) const;
    std::string slr(const std::string& type, unsigned n) const;

private:
    bool counts(const HTEQHardwareBusInterface& bus) const;
    bool knows(const std::string& type) const;
    /// The last interface of the type; on an indexed platform the last that has a bank `n`.
    const HTEQHardwareBusInterface* last(const std::string& type, unsigned n) const;

    const BusInterfaces& buses_;
    bool indexed_;
};

/// The paragraph for a platform of whose automatic HBM banks only some are default ones.
std::string partlyDefaultHbmText(const std::string& instance);

}  // namespace hardware
