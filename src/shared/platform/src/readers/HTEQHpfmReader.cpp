#include "platform/HTEQHpfmReader.h"

#include <fmt/core.h>

#include "msg/Budget.h"
#include "msg/ComMsgMgr.h"
#include "msg/Printed.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQHpfmUtl.h"
#include "platform/HTEQSystemClock.h"
#include "readers/Bindings.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"

namespace {

std::string lineText(const xml::Exception& e) { return fmt::format("Line number:{}. {}\n", e.line(), e.what()); }

void readClocks(const WELHardwarePlatform::SystemClocks& record, HTEQHardwarePlatform& platform) {
    platform.setDefaultClkId(record.defaultClock.get());
    for (const auto& from : record.clocks) {
        HTEQSystemClock& clock = *platform.addSystemClock();
        binding::read(from, clock);
        clock.setName(from.id.isSet() ? fmt::format("PL {}", from.id.get()) : from.name.get());
    }
}

/// Counts the banks of high-bandwidth memory that a linker may assign.
void takeBanks(const WELHardwarePlatform::BusInterface& record, const HTEQHardwareBusInterface& interface,
               HTEQHardwarePlatform& platform) {
    if (interface.getCompRef() != HTEQHpfmUtl::HBM_MEMORY_SUBSYSTEM) return;
    // The names of instances, which may be long, are compared once.
    const std::string& first = platform.getHBMInstanceName();
    const bool isOther = !first.empty() && first != interface.getInstRef();
    for (const auto& segment : record.addressSegments) {
        if (!segment.auto_.isSet()) continue;
        platform.setHBMPresent();
        if (segment.auto_.get() == "false") continue;
        if (isOther)
            ComMsgMgr::sendMsg("@74-261@");
        else
            platform.updateHBMBankInfo(first.empty() ? interface.getInstRef() : first,
                                       segment.auto_.get() == "preferred");
    }
}

void readBusInterface(const WELHardwarePlatform::BusInterface& record, HTEQHardwareBusInterface& interface,
                      HTEQHardwarePlatform& platform) {
    binding::read(record, interface);
    for (const auto& segment : record.addressSegments) binding::read(segment, *interface.addAddressSegment());
    takeBanks(record, interface, platform);
}

void readNocConnectivity(const WELHardwarePlatform::NocConnectivity& record, HTEQHardwarePlatform& platform) {
    HTEQHardwareNocConnectivity& connectivity = *platform.addNocConnectivity();
    binding::read(record, connectivity);
    for (const auto& interface : record.busInterfaces)
        readBusInterface(interface, *connectivity.addBusInterface(), platform);
}

void readComponent(const WELHardwarePlatform::Component& record, HTEQHardwarePlatform& platform) {
    if (platform.getVendor().empty()) platform.setVendor(record.vendor.get());
    if (platform.getBoardId().empty()) platform.setBoardId(record.name.get());
    if (platform.getName().empty()) platform.setName(record.name.get());
    platform.setDescription(record.platformInfo.description);
    binding::read(record, platform);
    readClocks(record.platformInfo.systemClocks, platform);
    for (const auto& parameter : record.parameters) binding::read(parameter, *platform.addHardwareIPParam());
    for (const auto& interface : record.busInterfaces)
        readBusInterface(interface, *platform.addBusInterface(), platform);
    for (const auto& connectivity : record.nocConnectivity) readNocConnectivity(connectivity, platform);
}

}  // namespace

HTEQHpfmReader::HTEQHpfmReader(std::string hpfm, HTEQHardwarePlatform* platform)
    : hpfm_(std::move(hpfm)), platform_(platform) {
    if (hpfm_.empty()) msg::print("CRITICAL WARNING: Empty hpfm string passed in\n");
}

bool HTEQHpfmReader::parseFile() {
    const std::string failed = fmt::format("Error parsing hardware platform file: {}\n", file_);
    if (!HUTPathUtils::exists(file_)) {
        errorMsg_ += failed + "Specified hardware platform file doens't exists\n";
        return false;
    }
    const Budget budget;
    try {
        parseRepository(xml::readFile(WELHardwarePlatform::kDocument, file_));
        platform_->setPlatformFile(file_);
        return true;
    } catch (const xml::Exception& e) {
        const std::string text = failed + lineText(e);
        msg::print(text);
        errorMsg_ += text;
        ComMsgMgr::sendMsg("@74-12@", text, e.line());
        return false;
    }
}

const WELHardwarePlatform::Repository* HTEQHpfmReader::readStream_() {
    using WELHardwarePlatform::Repository;
    try {
        if (!repository_)
            repository_ =
                std::make_shared<const Repository>(xml::read(WELHardwarePlatform::kDocument, hpfm_, "hpfm"));
        return repository_.get();
    } catch (const xml::Exception& e) {
        errorMsg_ = "Error parsing hardware platform stream from CFA\n" + lineText(e);
        msg::print(errorMsg_);
        HEXDiagnostic fault = e.diagnostic();
        fault.file = platform_->getPlatformFile();
        fault.member = platform_->getFile("HPFM");
        ComMsgMgrInstance message = ComMsgMgr::make("@74-31@");
        message.text = fault.format();  // the row names no place
        ComMsgMgr::send(message);
        return nullptr;
    }
}

bool HTEQHpfmReader::parseStream() {
    const Budget budget;
    const auto* const repository = readStream_();
    if (repository) parseRepository(*repository);
    return repository != nullptr;
}

bool HTEQHpfmReader::parseBusInterfaces() {
    const Budget budget;
    const auto* const repository = readStream_();
    if (!repository) return false;
    for (const auto& record : repository->component.busInterfaces)
        readBusInterface(record, *platform_->addBusInterface(), *platform_);
    return true;
}

bool HTEQHpfmReader::parseNocConnectivity() {
    const Budget budget;
    const auto* const repository = readStream_();
    if (!repository) return false;
    for (const auto& record : repository->component.nocConnectivity) readNocConnectivity(record, *platform_);
    return true;
}

void HTEQHpfmReader::parseRepository(const WELHardwarePlatform::Repository& record) {
    readComponent(record.component, *platform_);
}
