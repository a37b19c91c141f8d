#include "platform/HTEQHpfmUtl.h"

#include <optional>

#include "msg/ComMsgMgr.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHpfmReader.h"
#include "readers/DocumentFile.h"
#include "records/TEQHpfmLMX.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"
#include "xml/XmlWriter.h"

namespace {

using WELHardwarePlatform::BusInterface;
using WELHardwarePlatform::Repository;

constexpr const char* kPreferred = "preferred";

/// Whether a linker may assign the bank automatically.
bool isAutomatic(const WELHardwarePlatform::BusInterfaceAddressSegment& segment) {
    return segment.auto_.isSet() && segment.auto_.get() != "false";
}

std::optional<Repository> readHpfm(const std::string& file) {
    try {
        return xml::readFile(WELHardwarePlatform::kDocument, file);
    } catch (const xml::Exception& e) {
        ComMsgMgr::sendMsg("@74-260@%s%s%s", file, e.line(), e.what());
        return std::nullopt;
    }
}

/// Whether the record was changed and must be written. Also false if the memory is ambiguous.
bool repair(Repository& repository) {
    bool changed = false;
    for (BusInterface& interface : repository.component.busInterfaces) {
        if (interface.componentRef.get() != HTEQHpfmUtl::HBM_MEMORY_SUBSYSTEM) continue;
        if (changed) {
            ComMsgMgr::sendMsg("@74-261@");
            return false;
        }
        changed = HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface);
        if (changed) HTEQHpfmUtl::markAllTrueAddressSegmentsPreferred(interface);
    }
    return changed;
}

}  // namespace

void HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(const std::string& file) {
    HPLPlatform scratch;
    HTEQHpfmReader reader("NormalizeMemoryBanks", &scratch);
    if (!HUTPathUtils::exists(file)) {
        ComMsgMgr::sendMsg("@74-12@", "File: " + file + " doesn't exist.\n");
        return;
    }
    std::optional<Repository> repository = readHpfm(file);
    if (!repository) return;
    reader.parseRepository(*repository);  // warns of banks of several memories
    if (repair(*repository))
        readers::writeDocument(file, [&] { return xml::write(WELHardwarePlatform::kDocument, *repository); });
}

bool HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(const BusInterface& interface) {
    std::size_t automatic = 0, preferred = 0;
    for (const auto& segment : interface.addressSegments) {
        if (!isAutomatic(segment)) continue;
        ++automatic;
        if (segment.auto_.get() == kPreferred) ++preferred;
    }
    return preferred > 0 && preferred < automatic;
}

void HTEQHpfmUtl::markAllTrueAddressSegmentsPreferred(BusInterface& interface) {
    for (auto& segment : interface.addressSegments)
        if (isAutomatic(segment)) segment.auto_.set(kPreferred);
}
