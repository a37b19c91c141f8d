#include "platform/HTEQCfaXmlWriter.h"

#include <fmt/core.h>

#include <limits>
#include <memory>

#include "hardware/RomNames.h"
#include "hardware/SlrIndex.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "readers/CfaXmlTexts.h"
#include "readers/DocumentFile.h"
#include "text/HSTStringUtils.h"
#include "xml/XmlWriter.h"

namespace {

using cfaxml::writeTexts;

constexpr const char* kDefaultBinaryFormat = "rovapk2";

std::string flagText(bool value) { return value ? "true" : "false"; }

/// Calls `use` with each object of a walk that the model made.
template <class T, class Use>
void forEach(HSTFwdIter<T*>* made, Use use) {
    const std::unique_ptr<HSTFwdIter<T*>> it(made);
    while (it->hasNext()) use(*it->next());
}

/// The entries of a map as records of a name and a value.
template <auto Name, auto Value, class Record>
void writePairs(const std::map<std::string, std::string>& entries, std::vector<Record>& records) {
    for (const auto& [name, value] : entries) {
        Record& record = records.emplace_back();
        (record.*Name).set(name);
        (record.*Value).set(value);
    }
}

/// The list element, made when its first item comes: an empty list has no element.
template <class List>
List& listOf(std::optional<List>& list) {
    return list ? *list : list.emplace();
}

/// Switches, all of them by the name "xp": the reader drops the names that they had.
template <class Switches>
std::optional<Switches> switchesOf(const HSTVector<std::string>& values) {
    std::optional<Switches> result;
    for (const std::string& value : values) {
        auto& option = listOf(result).switches.emplace_back();
        option.Name.set("xp");
        option.Value.set(value);
    }
    return result;
}

std::uint8_t computeUnitsOf(const HPLCore& core) {
    constexpr unsigned kMost = std::numeric_limits<std::uint8_t>::max();
    const unsigned units = core.getNumComputeUnits();
    if (units <= kMost) return static_cast<std::uint8_t>(units);
    xml::Violation violation;
    violation.element = "Core";
    violation.text = fmt::format("ComputeUnits=\"{}\" of <Core> is above the maximum, {}", units, kMost);
    throw xml::Exception(std::move(violation));
}

}  // namespace

HTEQCfaXmlWriter::HTEQCfaXmlWriter(HPLPlatform* platform, std::string file)
    : platform_(platform), file_(std::move(file)) {}

void HTEQCfaXmlWriter::writeCFA() {
    readers::writeDocument(file_, [this] { return document_(); });
}

std::string HTEQCfaXmlWriter::getText() const {
    return readers::makeDocument(file_, [this] { return document_(); });
}

std::string HTEQCfaXmlWriter::document_() const {
    BasePlatform::Root root;
    root.VersionMajor.set(root.VersionMajor.get());
    root.VersionMinor.set(root.VersionMinor.get());
    writeGenAppInfo_(root);
    writeCFA_(root.cfa);
    return xml::write(BasePlatform::kDocument, root);
}

void HTEQCfaXmlWriter::writeGenAppInfo_(BasePlatform::Root& record) const {
    BasePlatform::GenAppInfo& to = record.genAppInfo.emplace();
    writeTexts(*platform_, to);
    to.CL.set(platform_->getGeneratedChangeList());
}

void HTEQCfaXmlWriter::writeCFA_(BasePlatform::CFA& record) const {
    writeTexts(*platform_, record);
    record.VersionMajor.set(platform_->getVersionMajor());
    record.VersionMinor.set(platform_->getVersionMinor());
    record.FeatureRomTimestamp.set(platform_->getOldFeatureRomTime());
    record.DcpLogicFunctionStripped.set(flagText(platform_->isDcpFuncStripped()));
    record.DcpEncrypt.set(flagText(platform_->isDcpEncrypt()));
    record.Unified.set(flagText(platform_->isUnifiedPlatform()));
    record.Fixed.set(flagText(!platform_->isExpandable()));
    writeHostArchitecture_(record);
    writeBuildFlow_(record);
    writeBoard_(record);
    writeDesignIPs_(record);
    writeDevices_(record);
    writeFiles_(record);
    writeFeatureRom_(record);
}

void HTEQCfaXmlWriter::writeHostArchitecture_(BasePlatform::CFA& record) const {
    if (platform_->usesPR()) writeTexts(*platform_, record.host.emplace());
}

void HTEQCfaXmlWriter::writeBuildFlow_(BasePlatform::CFA& record) const {
    BasePlatform::Build& build = record.build;
    writeTexts(*platform_, build);
    build.UsesPR.set(flagText(platform_->usesPR()));
    if (const std::string& format = platform_->getAcceleratorBinaryFormat(); format != kDefaultBinaryFormat)
        build.AcceleratorBinaryFormat.set(format);
    if (std::string values = platform_->getValidBinaryContentValuesAsStr(); !values.empty())
        build.ValidBinaryContentValues.set(std::move(values));
    build.compileSwitches = switchesOf<BasePlatform::ZuncCompileSwitches>(platform_->getZuncCompileXpSwitches());
    build.linkSwitches = switchesOf<BasePlatform::ZuncLinkSwitches>(platform_->getZuncLinkXpSwitches());
}

void HTEQCfaXmlWriter::writeBoard_(BasePlatform::CFA& record) const {
    writeTexts(platform_->getReadOnlyBoard(), record.board);
    writeInterfaces_(record.board);
    writeMemories_(record.board);
    writeConnectors_(record.board);
    writeImages_(record.board);
    writePCIeId_(record.board);
}

/// The form has room for one: of several the last.
void HTEQCfaXmlWriter::writeInterfaces_(BasePlatform::Board& record) const {
    forEach(platform_->createInterfaceIter(), [&](const HPLInterface& interface) {
        writeTexts(interface, record.interfaces.emplace().interface.emplace());
    });
}

void HTEQCfaXmlWriter::writeMemories_(BasePlatform::Board& record) const {
    using BasePlatform::Param;
    forEach(platform_->createMemoryIter(), [&](const HPLMemory& memory) {
        BasePlatform::Memory& to = listOf(record.memories).memories.emplace_back();
        writeTexts(memory, to);
        to.LowestAddress.set(static_cast<std::int64_t>(memory.getLowestAddress()));
        to.HighestAddress.set(static_cast<std::int64_t>(memory.getHighestAddress()));
        if (const auto& params = memory.getReadOnlyConfigParamMap(); !params.empty())
            writePairs<&Param::Name, &Param::Value>(params, to.config.emplace().params);
    });
}

void HTEQCfaXmlWriter::writeConnectors_(BasePlatform::Board& record) const {
    HSTVector<HPLBoard::DimmConnector*> connectors;
    platform_->getReadOnlyBoard().getConnectorsVec(connectors);
    for (const HPLBoard::DimmConnector* connector : connectors) {
        BasePlatform::Connector& to = listOf(record.connectors).connectors.emplace_back();
        writeTexts(*connector, to);
        if (connector->isLocked()) to.IsLocked.set(flagText(true));
    }
}

void HTEQCfaXmlWriter::writeImages_(BasePlatform::Board& record) const {
    const HPLBoard& board = platform_->getReadOnlyBoard();
    const std::pair<const char*, const std::string&> images[] = {
        {"HDPI", board.getImgFileHdpi()}, {"MDPI", board.getImgFileMdpi()}, {"LDPI", board.getImgFileLdpi()}};
    for (const auto& [type, file] : images) {
        BasePlatform::Img& to = record.images.imgs.emplace_back();
        to.Type.set(type);
        to.File.set(file);
    }
}

void HTEQCfaXmlWriter::writePCIeId_(BasePlatform::Board& record) const {
    if (platform_->usesPR() || platform_->isFlatShell())
        writeTexts(platform_->getReadOnlyBoard().getPCIeId(), record.pcieId.emplace());
}

void HTEQCfaXmlWriter::writeDesignIPs_(BasePlatform::CFA& record) const {
    using BasePlatform::Parameter;
    forEach(platform_->createDesignIPInstanceIter(), [&](const HTEQDesignIPInstance& ip) {
        BasePlatform::IP& to = listOf(record.designIPs).ips.emplace_back();
        writeTexts(ip, to);
        std::map<std::string, std::string> params;
        ip.getConfigParamMap(params);
        if (!params.empty())
            writePairs<&Parameter::Name, &Parameter::Value>(params, to.configuration.emplace().parameters);
    });
}

void HTEQCfaXmlWriter::writeDevices_(BasePlatform::CFA& record) const {
    using BasePlatform::SystemClock;
    forEach(platform_->createDeviceIter(), [&](const HPLDevice& device) {
        BasePlatform::Device& to = record.devices.devices.emplace_back();
        writeTexts(device, to);
        if (const auto& clocks = device.getSystemClockMap(); !clocks.empty())
            writePairs<&SystemClock::Name, &SystemClock::Frequency>(clocks, to.systemClocks.emplace().clocks);
        writeCore_(device.getReadOnlyCore(), to.core);
    });
}

void HTEQCfaXmlWriter::writeCore_(const HPLCore& core, BasePlatform::Core& record) const {
    using BasePlatform::InnerCoreConfigParam;
    writeTexts(core, record);
    record.ComputeUnits.set(computeUnitsOf(core));
    BasePlatform::InnerCore& inner = record.innerCore.emplace();
    writeResources_(core, inner);
    if (const auto& params = core.getReadOnlyConfigParamMap(); !params.empty())
        writePairs<&InnerCoreConfigParam::Name, &InnerCoreConfigParam::Value>(params, inner.config.emplace().params);
    forEach(core.createPortIter(), [&](const HPLPort& port) {
        BasePlatform::Port& to = inner.ports.emplace_back();
        writeTexts(port, to);
        forEach(port.createAddressSegmentIter(), [&](const HPLAddressSegment& segment) {
            writeTexts(segment, listOf(to.addressSegments).segments.emplace_back());
        });
    });
}

void HTEQCfaXmlWriter::writeResources_(const HPLCore& core, BasePlatform::InnerCore& record) const {
    using BasePlatform::Resource;
    BasePlatform::AvailableResources& to = record.availableResources.emplace();
    writeTexts(core, to);
    const hardware::SlrIndex slrs(core.getReadOnlySLRMap());
    for (const auto& [name, resources] : core.getReadOnlyPBlockToResourceMap()) {
        BasePlatform::PBlock& pblock = to.pblocks.emplace_back();
        pblock.Name.set(name);
        if (const auto* found = slrs.find(name))
            if (std::string names = HSTStringUtils::join({found->begin(), found->end()}, ","); !names.empty())
                pblock.ValidSLRs.set(std::move(names));
        writePairs<&Resource::Name, &Resource::Val>(resources, pblock.resources);
    }
}

void HTEQCfaXmlWriter::writeFiles_(BasePlatform::CFA& record) const {
    const auto [begin, end] = platform_->getFileVecRange();
    for (auto it = begin; it != end; ++it) writeTexts(**it, record.files.files.emplace_back());
}

/// The form has room for one: of several the first.
void HTEQCfaXmlWriter::writeFeatureRom_(BasePlatform::CFA& record) const {
    const auto [begin, end] = platform_->getFeatureRomVecRange();
    if (begin == end) return;
    const HTEQHardwareFeatureRom& rom = **begin;
    BasePlatform::FeatureRom& to = record.featureRom.emplace();
    to.MajorVersion.set(rom.getMajorVersion());
    to.MinorVersion.set(rom.getMinorVersion());
    to.MorwenBuildID.set(rom.getMorwenBuildID());
    to.IPBuildID.set(rom.getIPBuildID());
    to.TimeSinceEpoch.set(rom.getTimeSinceEpoch());
    to.FPGAPartName.set(hardware::romNameText(rom.getFPGAPartName()));
    to.VBNVName.set(hardware::romNameText(rom.getVBNVName()));
    to.DDRChannelCount.set(rom.getDDRChannelCount());
    to.DDRChannelSize.set(rom.getDDRChannelSize());
    to.DRBaseAddress.set(rom.getDRBaseAddress());
    to.FeatureBitMap.set(rom.getFeatureBitMap());
    to.UUID.set(rom.getUUIDAsString());
    to.CDMABaseAddress0.set(rom.getCDMABaseAddress(0));
    to.CDMABaseAddress1.set(rom.getCDMABaseAddress(1));
    to.CDMABaseAddress2.set(rom.getCDMABaseAddress(2));
    to.CDMABaseAddress3.set(rom.getCDMABaseAddress(3));
    if (const auto limit = rom.getMaxTempLimit(); limit != 0) to.MaxTempLimit.set(limit);
    if (const auto limit = rom.getMaxPowerLimit(); limit != 0) to.MaxPowerLimit.set(limit);
}
