#include "platform/HTEQHpfmReader.h"

#include <fmt/core.h>

#include "msg/ComMsgMgr.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQHpfmUtl.h"
#include "platform/HTEQSystemClock.h"
#include "readers/Printed.h"
#include "readers/Saturated.h"
#include "records/TEQHpfmLMX.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"

namespace {

std::string lineText(const xml::Exception& e) { return fmt::format("Line number:{}. {}\n", e.line(), e.what()); }

}  // namespace

HTEQHpfmReader::HTEQHpfmReader(std::string hpfm, HTEQHardwarePlatform* platform)
    : hpfm_(std::move(hpfm)), platform_(platform) {
    if (hpfm_.empty()) readers::print("CRITICAL WARNING: Empty hpfm string passed in\n");
}

bool HTEQHpfmReader::parseFile() {
    const std::string failed = fmt::format("Error parsing hardware platform file: {}\n", file_);
    if (!HUTPathUtils::exists(file_)) {
        errorMsg_ += failed + "Specified hardware platform file doens't exists\n";
        return false;
    }
    try {
        parseRepository(xml::readFile(WELHardwarePlatform::kDocument, file_));
        platform_->setPlatformFile(file_);
        return true;
    } catch (const xml::Exception& e) {
        const std::string text = failed + lineText(e);
        readers::print(text);
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
        readers::print(errorMsg_);
        ComMsgMgr::sendMsg("@74-31@");
        return nullptr;
    }
}

bool HTEQHpfmReader::parseStream() {
    const auto* const repository = readStream_();
    if (repository) parseRepository(*repository);
    return repository != nullptr;
}

bool HTEQHpfmReader::parseBusInterfaces() {
    const auto* const repository = readStream_();
    if (!repository) return false;
    for (const auto& record : repository->component.busInterfaces)
        parseBusInterface_(record, *platform_->addBusInterface());
    return true;
}

bool HTEQHpfmReader::parseNocConnectivity() {
    const auto* const repository = readStream_();
    if (!repository) return false;
    for (const auto& record : repository->component.nocConnectivity) parseNocConnectivity_(record);
    return true;
}

void HTEQHpfmReader::parseRepository(const WELHardwarePlatform::Repository& record) {
    parseComponent_(record.component);
}

void HTEQHpfmReader::parseComponent_(const WELHardwarePlatform::Component& record) {
    if (platform_->getVendor().empty()) platform_->setVendor(record.vendor.get());
    if (platform_->getBoardId().empty()) platform_->setBoardId(record.name.get());
    if (platform_->getName().empty()) platform_->setName(record.name.get());
    platform_->setDescription(record.platformInfo.description);
    platform_->setBRAMCount(saturated<int>(record.BRAM.get()));
    platform_->setDSPCount(saturated<int>(record.DSP.get()));
    platform_->setLUTCount(saturated<int>(record.LUT.get()));
    platform_->setFFCount(saturated<int>(record.FF.get()));
    parseSystemClocks_(record.platformInfo.systemClocks);
    for (const auto& parameter : record.parameters) parseParam_(parameter);
    for (const auto& interface : record.busInterfaces) parseBusInterface_(interface, *platform_->addBusInterface());
    for (const auto& connectivity : record.nocConnectivity) parseNocConnectivity_(connectivity);
}

void HTEQHpfmReader::parseSystemClocks_(const WELHardwarePlatform::SystemClocks& record) {
    platform_->setDefaultClkId(record.defaultClock.get());
    for (const auto& from : record.clocks) {
        HTEQSystemClock& clock = *platform_->addSystemClock();
        clock.setName(from.name.get());
        clock.setOrigName(from.name.get());
        clock.setCompRef(from.componentRef.get());
        clock.setInstRef(from.instanceRef.get());
        clock.setStatus(from.status.get());
        clock.setFrequency(from.frequency.get().text);
        clock.setPeriod(from.period.get().text);
        clock.setNormalizedPeriod(from.normalizedPeriod.get().text);
        if (!from.id.isSet()) continue;
        clock.setId(from.id.get());
        clock.setName(fmt::format("PL {}", from.id.get()));
    }
}

void HTEQHpfmReader::parseParam_(const WELHardwarePlatform::Parameter& record) {
    HTEQHardwareIPParam& param = *platform_->addHardwareIPParam();
    param.setName(record.name.get());
    param.setValue(record.value.get());
    param.setIsValid(record.isValid.get());
    param.setCompRef(record.componentRef.get());
    param.setInstRef(record.instanceRef.get());
}

void HTEQHpfmReader::parseNocConnectivity_(const WELHardwarePlatform::NocConnectivity& record) {
    HTEQHardwareNocConnectivity& connectivity = *platform_->addNocConnectivity();
    connectivity.setInstanceRef(record.instanceRef.get());
    for (const auto& interface : record.busInterfaces) parseBusInterface_(interface, *connectivity.addBusInterface());
}

// What the file leaves out reads as empty or 0, which is also what the model begins with: the setters of the next two
// need no question whether it is there.

void HTEQHpfmReader::parseBusInterface_(const WELHardwarePlatform::BusInterface& record,
                                        HTEQHardwareBusInterface& to) {
    to.setName(record.name.get());
    to.setBusTypeRef(record.busTypeRef.get());
    to.setInstRef(record.instanceRef.get());
    to.setCompRef(record.componentRef.get());
    to.setBusInterfaceRef(record.busInterfaceRef.get());
    to.setClockRef(record.clockRef.get());
    to.setDataWidth(record.dataWidth.get());
    to.setDirection(record.direction.get());
    to.setMemPort(record.memport.get());
    to.setSPTag(record.sptag.get());
    to.setMode(record.mode.get());
    to.setAddressSegment(record.addressSegment.get());
    to.setMemoryInstance(record.memoryInstance.get());
    to.setSLR(record.slr.get());
    to.setSize(record.size.get());
    to.setPeakMemoryBandwidth(record.peakMemoryBandwidth.get());
    to.setMaxMasters(record.maxMasters.get());
    to.setNumIdBits(saturated<int>(record.idBits.get()));
    to.setISRId(record.isrId.get());
    to.setCategory(record.category.get());
    for (const auto& segment : record.addressSegments) parseAddressSegment_(segment, to);
}

void HTEQHpfmReader::parseAddressSegment_(const WELHardwarePlatform::BusInterfaceAddressSegment& record,
                                          HTEQHardwareBusInterface& to) {
    HTEQHardwareAddressSegment& segment = *to.addAddressSegment();
    segment.setBaseName(record.baseName.get());
    segment.setName(record.name.get());
    segment.setIndex(record.index.get());
    segment.setMemoryInstance(record.memoryInstance.get());
    segment.setAuto(record.auto_.get());
    segment.setSpTag(record.sptag.get());
    segment.setSlr(record.slr.get());
    segment.setMaxMasters(record.maxMasters.get());
    segment.setInstanceRef(record.instanceRef.get());
    segment.setRegion(record.region.get());
    segment.setReadBwUsed(saturated<int>(record.readBwUsed.get().value()));
    segment.setWriteBwUsed(saturated<int>(record.writeBwUsed.get().value()));
    segment.setInterleave(record.interleave.get());
    if (!record.auto_.isSet() || to.getCompRef() != HTEQHpfmUtl::HBM_MEMORY_SUBSYSTEM) return;
    platform_->setHBMPresent();
    if (record.auto_.get() != "false")
        platform_->updateHBMBankInfo(to.getInstRef(), record.auto_.get() == "preferred");
}
