#include "check/HpfmCheck.h"

#include "check/MetadataRules.h"
#include "check/ValidXml.h"
#include "platform/HTEQHpfmUtl.h"
#include "records/TEQHpfmLMX.h"

namespace check {

namespace {

using Document = ValidXml<WELHardwarePlatform::Repository>;
using WELHardwarePlatform::BusInterface;

void checkClockList(Document& document, const WELHardwarePlatform::SystemClocks& list) {
    std::vector<Clock> clocks;
    for (const auto& clock : list.clocks)
        clocks.push_back({.id = clock.id.isSet() ? clock.id.get() : -1, .status = clock.status.get()});
    checkClocks(
        clocks, list.defaultClock.get(),
        [&](std::size_t i, const char* name, std::string text) {
            document.add(name, "clock", &list.clocks[i], std::move(text));
        },
        [&](const char* name, std::string text) { document.add(name, "systemClocks", &list, std::move(text)); });
}

/// The platform's clocks are those of the metadata, where it is JSON.
void checkWithMetadata(Document& document, const WELHardwarePlatform::SystemClocks& list, const KnownNames& known) {
    if (!known.frequencies) return;
    if (known.frequencies->empty() && !list.clocks.empty())
        document.add(kDifferentClock, "systemClocks", &list,
                     "the metadata has no systemClocks; those of the hpfm are not read");
    std::set<long long> ids;
    for (const auto& clock : list.clocks) {
        if (clock.id.isSet() && !ids.insert(clock.id.get()).second) continue;
        const std::string fault =
            clock.id.isSet() ? clockFault(clock.id.get(), clock.frequency.get().text, known) : "";
        if (!fault.empty()) document.add(kDifferentClock, "clock", &clock, fault);
    }
}

/// The names by which an interface can refer to a clock.
std::set<std::string> namesOf(const WELHardwarePlatform::SystemClocks& list) {
    std::set<std::string> names;
    for (const auto& clock : list.clocks) {
        names.insert(clock.name.get());
        if (clock.id.isSet()) names.insert("PL " + std::to_string(clock.id.get()));
    }
    return names;
}

/// Checks the address segments; false if one has an unknown assignment.
bool checkSegments(Document& document, const BusInterface& interface) {
    bool areKnown = true;
    std::set<long long> indexes;
    for (const auto& segment : interface.addressSegments) {
        if (segment.index.isSet() && !indexes.insert(segment.index.get()).second)
            document.add(kRepeatedName, "addressSegment", &segment,
                         "an earlier address segment also has the index " + std::to_string(segment.index.get()));
        const std::string fault = assignmentFault(segment.auto_.get());
        if (fault.empty()) continue;
        document.add(kUnknownValue, "addressSegment", &segment, fault);
        areKnown = false;
    }
    return areKnown;
}

void checkInterface(Document& document, const BusInterface& interface, const std::set<std::string>& clocks,
                    const std::set<std::string>& slrs) {
    for (const std::string& fault : {modeFault(interface.mode.get()), memoryPortFault(interface.memport.get())})
        if (!fault.empty()) document.add(kUnknownValue, "busInterface", &interface, fault);
    const auto expectKnown = [&](const char* what, const std::string& name, const std::set<std::string>& known,
                                 const char* element, const void* at) {
        if (!known.empty() && !name.empty() && !known.contains(name))
            document.add(kUnknownReference, element, at, document.isFull() ? "" : referenceFault(what, name, known));
    };
    expectKnown("clock", interface.clockRef.get(), clocks, "busInterface", &interface);
    expectKnown("SLR", interface.slr.get(), slrs, "busInterface", &interface);
    for (const auto& segment : interface.addressSegments)
        expectKnown("SLR", segment.slr.get(), slrs, "addressSegment", &segment);
    if (checkSegments(document, interface) && interface.componentRef.get() == HTEQHpfmUtl::HBM_MEMORY_SUBSYSTEM &&
        HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface))
        document.add(kPartlyDefaultHbm, "busInterface", &interface,
                     "only some of the banks that a linker may assign are \"preferred\"");
}

void checkInterfaceNames(Document& document, const std::vector<BusInterface>& interfaces) {
    std::vector<std::string> names;
    for (const BusInterface& interface : interfaces) names.push_back(interface.name.get());
    checkNames(names, "bus interface", [&](std::size_t i, const char* name, std::string text) {
        document.add(name, "busInterface", &interfaces[i], std::move(text));
    });
}

}  // namespace

bool checkHpfm(const Source& source, const ReadXml& read, const KnownNames& known, Findings& findings) {
    if (!reportSyntax(source, read, findings)) return false;
    Document document(WELHardwarePlatform::kDocument, source, read);
    const WELHardwarePlatform::Component& component = document.record.component;
    const auto& list = component.platformInfo.systemClocks;
    checkClockList(document, list);
    checkWithMetadata(document, list, known);
    checkInterfaceNames(document, component.busInterfaces);
    const std::string& device = component.platformInfo.deviceInfo.device.get();
    if (std::string fault = referenceFault("device", device, known.devices); !fault.empty())
        document.add(kUnknownReference, "deviceInfo", &component.platformInfo.deviceInfo, std::move(fault));
    std::set<std::string> clocks = namesOf(list);
    clocks.insert(known.clocks.begin(), known.clocks.end());
    for (const BusInterface& interface : component.busInterfaces)
        checkInterface(document, interface, clocks, known.slrs);
    for (const auto& connectivity : component.nocConnectivity)
        for (const BusInterface& interface : connectivity.busInterfaces)
            checkInterface(document, interface, clocks, known.slrs);
    document.report(findings);
    return true;
}

}  // namespace check
