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
        clocks.push_back({clock.id.isSet() ? clock.id.get() : -1, false, "", clock.status.get()});
    checkClocks(
        clocks, list.defaultClock.get(),
        [&](std::size_t i, const char* name, std::string text) {
            document.add(name, "clock", &list.clocks[i], std::move(text));
        },
        [&](const char* name, std::string text) { document.add(name, "systemClocks", &list, std::move(text)); });
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

void checkInterface(Document& document, const BusInterface& interface, const std::set<std::string>& clocks,
                    const std::set<std::string>& slrs) {
    const auto expectKnown = [&](const char* what, const std::string& name, const std::set<std::string>& known,
                                 const char* element, const void* at) {
        if (std::string fault = referenceFault(what, name, known); !fault.empty())
            document.add(kUnknownReference, element, at, std::move(fault));
    };
    expectKnown("clock", interface.clockRef.get(), clocks, "busInterface", &interface);
    expectKnown("SLR", interface.slr.get(), slrs, "busInterface", &interface);
    for (const auto& segment : interface.addressSegments)
        expectKnown("SLR", segment.slr.get(), slrs, "addressSegment", &segment);
    if (interface.componentRef.get() == HTEQHpfmUtl::HBM_MEMORY_SUBSYSTEM &&
        HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface))
        document.add(kPartlyDefaultHbm, "busInterface", &interface,
                     "only some of the banks that a linker may assign are \"preferred\"");
}

}  // namespace

bool checkHpfm(const Source& source, const ReadXml& read, const KnownNames& known, Findings& findings) {
    if (!reportSyntax(source, read, findings)) return false;
    Document document(WELHardwarePlatform::kDocument, source, read);
    const WELHardwarePlatform::Component& component = document.record.component;
    const auto& list = component.platformInfo.systemClocks;
    checkClockList(document, list);
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
