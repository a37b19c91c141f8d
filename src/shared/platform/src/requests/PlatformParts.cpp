#include "platform/PlatformParts.h"

#include <map>
#include <memory>
#include <vector>

#include "hardware/MemoryBanks.h"
#include "msg/Budget.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQSystemClock.h"
#include "text/HSTStringUtils.h"

namespace teq_platform::requests {
namespace {

/// Calls `use` for each element of one of the model's iterators.
template <class T, class Use>
void forEach(HSTFwdIter<T*>* made, Use use) {
    const std::unique_ptr<HSTFwdIter<T*>> it(made);
    while (it->hasNext()) use(*it->next());
}

Assignment assignmentOf(const HTEQHardwareAddressSegment& segment) {
    const std::string& value = segment.getAuto();
    return value.empty()          ? Assignment::unknown
           : value == "preferred" ? Assignment::byDefault
           : value == "false"     ? Assignment::notAllowed
                                  : Assignment::allowed;
}

InterfacePart interfaceOf(const HTEQHardwareBusInterface& bus) {
    InterfacePart part{.name = bus.getName(),
                       .mode = bus.getMode(),
                       .type = bus.getBusTypeRef(),
                       .memoryPort = bus.getMemPort(),
                       .tag = bus.getSPTag(),
                       .slr = bus.getSLR(),
                       .clock = bus.getClockRef(),
                       .size = bus.getSize(),
                       .dataWidth = bus.getDataWidth()};
    HSTVector<HTEQHardwareAddressSegment*> segments;
    bus.getAddressSegments(segments);
    for (const HTEQHardwareAddressSegment* segment : segments)
        part.segments.push_back({segment->getName(), segment->getBaseName(), segment->getSpTag(), segment->getSlr(),
                                 segment->getMemoryInstance(), segment->getIndex(), assignmentOf(*segment)});
    return part;
}

/// The interfaces of each memory type, in lower case.
using Interfaces = std::map<std::string, std::vector<const HTEQHardwareBusInterface*>>;

Interfaces memoryInterfaces(const HTEQHardwarePlatform& platform, bool isIndexed) {
    Interfaces found;
    forEach(platform.createBusInterfaceIter(), [&](const HTEQHardwareBusInterface& bus) {
        if (isIndexed ? hardware::isIndexedMemory(bus) : hardware::isNonIndexedMemory(bus))
            found[HSTStringUtils::toLower(bus.getSPTag())].push_back(&bus);
    });
    return found;
}

/// The banks of an indexed platform are address segments; the size that the model gives for them is in no file. The last
/// interface of a type that has a bank leads to it: as numbers grow, interfaces that are too short are dropped.
HSTVector<BankPart> banksOf(const HTEQHardwarePlatform& platform) {
    const bool isIndexed = platform.isMemoryResourceIndexed();
    Interfaces interfaces = memoryInterfaces(platform, isIndexed);
    HSTVector<BankPart> banks;
    const Budget budget;  // each bank repeats texts of its interface
    HSTVector<HTEQHardwareAddressSegment*> segments;
    const HTEQHardwareBusInterface* current = nullptr;
    for (const HTEQHardwarePlatform::MemoryBank& bank : platform.getMemoryBanks()) {
        auto& candidates = interfaces[HSTStringUtils::toLower(bank.type)];
        while (isIndexed && candidates.size() > 1 && candidates.back()->getNumAddressSegments() <= bank.number)
            candidates.pop_back();
        if (candidates.empty()) continue;
        if (current != candidates.back()) candidates.back()->getAddressSegments(segments);
        current = candidates.back();
        Budget::spend(Cost::text, bank.type.size() + bank.size.size() + bank.slr.size() + current->getName().size());
        BankPart part{.type = bank.type,
                      .number = bank.number,
                      .size = isIndexed ? "" : bank.size,
                      .slr = bank.slr,
                      .interface = current->getName(),
                      .segment = ""};
        if (isIndexed && bank.number < segments.size()) {
            const HTEQHardwareAddressSegment& segment = *segments[bank.number];
            part.segment = segment.getName().empty() ? segment.getBaseName() : segment.getName();
            part.index = segment.getIndex();
            part.assignment = assignmentOf(segment);
        }
        banks.push_back(std::move(part));
    }
    return banks;
}

}  // namespace

Parts partsOf(const HTEQHardwarePlatform& platform) {
    Parts parts;
    if (const auto* archive = dynamic_cast<const HPLPlatform*>(&platform))
        forEach(archive->createMemoryIter(), [&](const HPLMemory& memory) {
            parts.memories.push_back({memory.getName(), memory.getType(), memory.getSize(), memory.getLowestAddress(),
                                      memory.getHighestAddress()});
        });
    const HTEQSystemClock* const byDefault = platform.getDefaultClock();
    forEach(platform.createSystemClockIter(), [&](const HTEQSystemClock& clock) {
        parts.clocks.push_back({clock.getName(), clock.getOrigName(), clock.getFrequency(), clock.getStatus(),
                                clock.getId(), &clock == byDefault});
    });
    forEach(platform.createBusInterfaceIter(),
            [&](const HTEQHardwareBusInterface& bus) { parts.interfaces.push_back(interfaceOf(bus)); });
    parts.banks = banksOf(platform);
    return parts;
}

}  // namespace teq_platform::requests
