#include "check/HpfmCheck.h"

#include <fmt/core.h>

#include <set>

#include "check/ValidXml.h"
#include "platform/HTEQHpfmUtl.h"
#include "records/TEQHpfmLMX.h"

namespace check {

bool checkHpfm(const Source& source, const ReadXml& read, Findings& findings) {
    if (!reportSyntax(source, read, findings)) return false;
    ValidXml document(WELHardwarePlatform::kDocument, source, read);
    const WELHardwarePlatform::Component& component = document.record.component;
    std::set<unsigned> ids;
    for (const auto& clock : component.platformInfo.systemClocks.clocks)
        if (clock.id.isSet() && !ids.insert(clock.id.get()).second)
            document.add(
                kRepeatedClockId, "clock", &clock,
                fmt::format("an earlier clock also has the id {}; queries by id give the last one", clock.id.get()));
    for (const auto& interface : component.busInterfaces)
        if (interface.componentRef.get() == HTEQHpfmUtl::HBM_MEMORY_SUBSYSTEM &&
            HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface))
            document.add(kPartlyDefaultHbm, "busInterface", &interface,
                         "only some of the banks that a linker may assign are \"preferred\"");
    document.report(findings);
    return true;
}

}  // namespace check
