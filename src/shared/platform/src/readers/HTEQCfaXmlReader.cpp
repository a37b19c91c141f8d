#include "platform/HTEQCfaXmlReader.h"

#include <memory>

#include "archive/PlatformArchive.h"
#include "hardware/RomNames.h"
#include "msg/HEXAll.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHpfmReader.h"
#include "readers/ArchiveMember.h"
#include "readers/CfaXmlTexts.h"
#include "readers/Printed.h"
#include "readers/Reading.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"
#include "zip/ArchiveError.h"

namespace {

using archive::PlatformArchive;
using cfaxml::readTexts;
using teq_platform::HwMetadataMode;
using xml::Attr;

bool isTrue(const Attr<std::string>& flag) { return flag.isSet() && HSTStringUtils::iequals(flag.get(), "true"); }

/// The value when the document gives one.
template <class T, class Set>
void ifSet(const Attr<T>& attr, Set set) {
    if (attr.isSet()) set(attr.get());
}

int numberOf(const std::string& text) { return static_cast<int>(HSTStringUtils::toNumber(text)); }

}  // namespace

HTEQCfaXmlReader::~HTEQCfaXmlReader() = default;

HTEQCfaXmlReader::HTEQCfaXmlReader(const std::string& archive, HPLPlatform* platform)
    : archive_(archive), platform_(platform) {
    if (archive.empty() || !HUTPathUtils::exists(archive)) throw HEXFileNotFoundException(archive);
}

bool HTEQCfaXmlReader::parseCFA() {
    return readers::succeedsReported([this] { readCFA(); });
}

void HTEQCfaXmlReader::readCFA(HwMetadataMode asked) {
    readRoot_(asked, [this](const BasePlatform::Root& root) {
        if (const std::string refusal = newerSchema_(root); !refusal.empty())
            readers::fail(ComMsgMgr::make("@74-52@%s", refusal), {.file = archive_, .text = refusal});
        readers::reading(
            archive_, member_, [&] { parseRoot_(root); },
            [this](const std::exception& e) {
                return ComMsgMgr::make("@74-65@%s%s%s", member_, archive_, e.what());
            });
    });
}

bool HTEQCfaXmlReader::getRootVersion(int& major, int& minor) {
    return readers::succeedsReported([&] {
        readRoot_(HwMetadataMode::XmlOnly, [&](const BasePlatform::Root& root) {
            major = static_cast<int>(root.VersionMajor.get());
            minor = static_cast<int>(root.VersionMinor.get());
        });
    });
}

/// Gives `use` the archive's document.
void HTEQCfaXmlReader::readRoot_(HwMetadataMode asked, const std::function<void(const BasePlatform::Root&)>& use) {
    platform_->setPlatformFile(HUTFile::getCanonicalName(archive_));
    member_ = platform_->getXmlFileName();
    const std::string text = textOf_(asked);
    std::unique_ptr<const BasePlatform::Root> root;
    readers::reading(
        archive_, member_,
        [&] {
            root = std::make_unique<const BasePlatform::Root>(
                xml::read(BasePlatform::kDocument, text, archive_ + "!" + member_));
        },
        [this](const std::exception& e) { return invalid_(e.what(), readers::diagnosticOf(e, archive_).line); });
    use(*root);
}

ComMsgMgrInstance HTEQCfaXmlReader::invalid_(const std::string& text, std::uint64_t line) const {
    return ComMsgMgr::make("@74-62@%s%s%d", text, archive_ + HUTFile::getDirSeparator() + member_, line);
}

/// A member that cannot be opened is reported as an empty document is: as a fault of its first line.
std::string HTEQCfaXmlReader::textOf_(HwMetadataMode asked) {
    const auto refuse = [this](const std::string& reason, const HEXDiagnostic& diagnostic) {
        readers::fail(invalid_(reason + " (column 1)", 1), diagnostic);
    };
    try {
        opened_ = std::make_unique<PlatformArchive>(archive_);
        if (std::optional<std::string> text = opened_->text(member_)) return std::move(*text);
        refuse("the archive has no such member", opened_->missingMetadata(asked));
    } catch (const zip::ArchiveError& e) {
        refuse(e.what(), e.diagnostic());
    }
    return {};
}

/// Why the document cannot be read; empty when it can.
std::string HTEQCfaXmlReader::newerSchema_(const BasePlatform::Root& root) const {
    const Attr<std::string>& state = root.cfa.build.PlatformState;
    if (state.isSet() && HSTStringUtils::iequals(state.get(), "pre_synth")) return {};
    const auto current = static_cast<std::int32_t>(BasePlatform::Root().VersionMajor.get());
    const auto major = static_cast<std::int32_t>(root.VersionMajor.get());
    if (major <= current) return {};
    return "Hardware Platform '" + archive_ + "' (version " + std::to_string(major) +
           ") is newer than the current version " + std::to_string(current) + " (" + HUTEnv::getFullBuildStr() + ")";
}

void HTEQCfaXmlReader::parseRoot_(const BasePlatform::Root& record) {
    if (record.genAppInfo) parseGenAppData_(*record.genAppInfo);
    parseCFA_(record.cfa);
}

void HTEQCfaXmlReader::parseGenAppData_(const BasePlatform::GenAppInfo& record) {
    readTexts(record, *platform_);
    platform_->setGeneratedChangeList(static_cast<unsigned>(record.CL.get()));
}

void HTEQCfaXmlReader::parseCFA_(const BasePlatform::CFA& record) {
    readTexts(record, *platform_);
    platform_->setVersionMajor(record.VersionMajor.get());
    platform_->setVersionMinor(record.VersionMinor.get());
    platform_->setOldFeatureRomTime(record.FeatureRomTimestamp.get());
    if (const auto& flag = record.DcpLogicFunctionStripped; flag.isSet()) platform_->setDcpFuncStripped(isTrue(flag));
    if (record.DcpEncrypt.isSet()) platform_->setDcpEncrypt(isTrue(record.DcpEncrypt));
    if (record.Unified.isSet()) platform_->setUnifiedPlatform(isTrue(record.Unified));
    // A platform that does not tell is fixed when its archive has a hardware definition.
    platform_->setExpandable(record.Fixed.isSet()
                                 ? !isTrue(record.Fixed)
                                 : !opened_->contains("hwdef.xml") && !opened_->contains("sysdef.xml"));
    if (record.host) parseHost_(*record.host);
    parseBuild_(record.build);
    parseBoard_(platform_->getBoard(), record.board);
    parseDevices_(record.devices);
    parseFiles_(record.files);
    if (record.featureRom) parseFeatureRom_(*record.featureRom);
    if (record.designIPs) parseDesignIPs_(*record.designIPs);
}

void HTEQCfaXmlReader::parseHost_(const BasePlatform::Host& record) { readTexts(record, *platform_); }

void HTEQCfaXmlReader::parseBuild_(const BasePlatform::Build& record) {
    using Key = HTEQDesignIntentStorage::Key;
    readTexts(record, *platform_);
    const bool pr = isTrue(record.UsesPR);
    platform_->setComputedDesignIntent(Key::dataCenter, pr);
    platform_->setComputedDesignIntent(Key::embedded, !pr);
    platform_->setComputedDesignIntent(Key::externalHost, pr);
    platform_->setComputedDesignIntent(Key::serverManaged, pr);
    if (record.UsesPR.isSet()) platform_->setUsesPR(pr);
    if (record.StaticSynthCheckpoint.isSet()) platform_->setPlatformState("synth");
    ifSet(record.AcceleratorBinaryFormat, [&](const auto& text) { platform_->setAcceleratorBinaryFormat(text); });
    const auto& values = record.ValidBinaryContentValues;
    for (const std::string& value : HSTStringUtils::split(values.isSet() ? values.get() : "dcp,bitstream", ','))
        platform_->addValidBinaryContentValue(value);
    if (record.compileSwitches)
        for (const auto& option : record.compileSwitches->switches)
            platform_->addZuncCompileXpSwitch(option.Value.get());
    if (record.linkSwitches)
        for (const auto& option : record.linkSwitches->switches) platform_->addZuncLinkXpSwitch(option.Value.get());
}

/// Drivers are not read.
void HTEQCfaXmlReader::parseBoard_(HPLBoard& board, const BasePlatform::Board& record) {
    readTexts(record, board);
    if (record.interfaces) parseInterfaces_(*record.interfaces);
    if (record.memories) parseMemories_(*record.memories);
    if (record.connectors) parseConnectors_(board, *record.connectors);
    parseImages_(board, record.images);
    if (record.pcieId) readTexts(*record.pcieId, board.getWriteablePCIeId());
}

void HTEQCfaXmlReader::parseInterfaces_(const BasePlatform::Interfaces& record) {
    if (record.interface) readTexts(*record.interface, *platform_->addInterface());
}

void HTEQCfaXmlReader::parseMemories_(const BasePlatform::Memories& record) {
    for (const auto& from : record.memories) {
        HPLMemory& memory = *platform_->addMemory();
        readTexts(from, memory);
        memory.setHighestAddress(static_cast<std::uint64_t>(from.HighestAddress.get()));
        memory.setLowestAddress(static_cast<std::uint64_t>(from.LowestAddress.get()));
        if (!from.config) continue;
        for (const auto& param : from.config->params) memory.addConfigParam(param.Name.get(), param.Value.get());
    }
}

void HTEQCfaXmlReader::parseConnectors_(HPLBoard& board, const BasePlatform::Connectors& record) {
    for (const auto& from : record.connectors) {
        HPLBoard::DimmConnector& connector = *board.addDimmConnector();
        readTexts(from, connector);
        connector.setConnected(!from.ConnectedConnector.get().empty());
        connector.setLocked(isTrue(from.IsLocked));
    }
}

void HTEQCfaXmlReader::parseImages_(HPLBoard& board, const BasePlatform::Images& record) {
    for (const auto& image : record.imgs) {
        const std::string& type = image.Type.get();
        if (type == "HDPI") board.setImgFileHdpi(image.File.get());
        if (type == "MDPI") board.setImgFileMdpi(image.File.get());
        if (type == "LDPI") board.setImgFileLdpi(image.File.get());
    }
}

void HTEQCfaXmlReader::parseDevices_(const BasePlatform::Devices& record) {
    for (const auto& device : record.devices) parseDevice_(*platform_->addDevice(), device);
}

void HTEQCfaXmlReader::parseDevice_(HPLDevice& device, const BasePlatform::Device& record) {
    readTexts(record, device);
    if (record.systemClocks)
        for (const auto& clock : record.systemClocks->clocks)
            device.addSystemClock(clock.Name.get(), clock.Frequency.get());
    parseCore_(device.getCore(), record.core);
}

void HTEQCfaXmlReader::parseCore_(HPLCore& core, const BasePlatform::Core& record) {
    readTexts(record, core);
    core.setNumComputeUnits(record.ComputeUnits.get());
    if (!record.innerCore) return;
    if (record.innerCore->config)
        for (const auto& param : record.innerCore->config->params)
            core.addConfigParam(param.Name.get(), param.Value.get());
    for (const auto& port : record.innerCore->ports) parsePort_(*core.addPort(), port);
    if (record.innerCore->availableResources) parseResources_(core, *record.innerCore->availableResources);
}

/// The core keeps the texts; the platform gets numbers, and none of the registers.
void HTEQCfaXmlReader::parseResources_(HPLCore& core, const BasePlatform::AvailableResources& record) {
    readTexts(record, core);
    if (const auto& bram = record.BRAM.get(); !bram.empty()) platform_->setBRAMCount(numberOf(bram));
    if (const auto& dsp = record.DSP.get(); !dsp.empty()) platform_->setDSPCount(numberOf(dsp));
    if (const auto& lut = record.LUT.get(); !lut.empty()) platform_->setLUTCount(numberOf(lut));
    for (const auto& pblock : record.pblocks) {
        const std::string& name = pblock.Name.get();
        ifSet(pblock.ValidSLRs, [&](const std::string& names) { core.addSLRInfo(name, names); });
        for (const auto& resource : pblock.resources)
            core.addResourceInfo(name, resource.Name.get(), resource.Val.get());
    }
}

void HTEQCfaXmlReader::parsePort_(HPLPort& port, const BasePlatform::Port& record) {
    readTexts(record, port);
    if (!record.addressSegments) return;
    for (const auto& from : record.addressSegments->segments) {
        auto segment = std::make_unique<HPLAddressSegment>();
        readTexts(from, *segment);
        port.addAddressSegment(segment.release());
    }
}

void HTEQCfaXmlReader::parseFiles_(const BasePlatform::Files& record) {
    for (const auto& from : record.files) {
        const std::string &type = from.Type.get(), &name = from.Name.get();
        readTexts(from, *platform_->addFile(type, name));
        if (HSTStringUtils::iequals(type, "HPFM")) parseHpfm_(name);
        if (HSTStringUtils::iequals(type, "EMU_XML")) parseEmulations_(name);
    }
}

void HTEQCfaXmlReader::parseHpfm_(const std::string& member) {
    const std::optional<std::string> text = readers::textOrNothing(*opened_, member);
    if (!text) return;
    // Each row of the list adds what its file says, and a file may be listed a hundred thousand times.
    hpfmBytes_ += text->size();
    if (hpfmBytes_ > archive::kMetadataBound)
        throw HEXUserException("the hpfm files that '" + archive_ + "' lists hold more than " +
                               std::to_string(archive::kMetadataBound) + " bytes in all");
    platform_->setHpfmString(*text);
    if (!HTEQHpfmReader(*text, platform_).parseStream()) {
        readers::print("Failed to parse hpfm stream from '" + member + "' in " + archive_ + "\n");
        return;
    }
    platform_->setUnifiedPlatform(true);
    platform_->setExpandable(true);
}

void HTEQCfaXmlReader::parseEmulations_(const std::string& member) {
    if (!emulationsRead_.insert(member).second) return;
    HTEQEmulations emulations;
    HTEQEmulationXMLReader::readFromCfa(archive_, member, &emulations);
    for (const HTEQEmulation* emulation : emulations.getEmulations())
        for (const HTEQEmulationFile* file : emulation->getFiles())
            if (file->getType() == "EMU_HPFM") platform_->setSupportsHWEmulation(true);
}

void HTEQCfaXmlReader::parseFeatureRom_(const BasePlatform::FeatureRom& record) {
    HTEQHardwareFeatureRom& rom = *platform_->addFeatureRom();
    rom.setMajorVersion(record.MajorVersion.get());
    rom.setMinorVersion(record.MinorVersion.get());
    rom.setMorwenBuildID(record.MorwenBuildID.get());
    rom.setIPBuildID(record.IPBuildID.get());
    rom.setTimeSinceEpoch(record.TimeSinceEpoch.get());
    rom.setFPGAPartName(hardware::romName(record.FPGAPartName.get()).bytes);
    rom.setVBNVName(hardware::romName(record.VBNVName.get()).bytes);
    rom.setDDRChannelCount(record.DDRChannelCount.get());
    rom.setDDRChannelSize(record.DDRChannelSize.get());
    rom.setDRBaseAddress(record.DRBaseAddress.get());
    rom.setFeatureBitMap(record.FeatureBitMap.get());
    rom.setUUID(record.UUID.get());
    const std::uint32_t addresses[] = {record.CDMABaseAddress0.get(), record.CDMABaseAddress1.get(),
                                       record.CDMABaseAddress2.get(), record.CDMABaseAddress3.get()};
    for (unsigned i = 0; i < std::size(addresses); ++i) rom.setCDMABaseAddress(i, addresses[i]);
    // The ROM has a byte for each limit.
    ifSet(record.MaxTempLimit, [&](auto limit) { rom.setMaxTempLimit(static_cast<std::uint8_t>(limit)); });
    ifSet(record.MaxPowerLimit, [&](auto limit) { rom.setMaxPowerLimit(static_cast<std::uint8_t>(limit)); });
}

void HTEQCfaXmlReader::parseDesignIPs_(const BasePlatform::DesignIPs& record) {
    for (const auto& from : record.ips) {
        HTEQDesignIPInstance& ip = *platform_->addDesignIPInstance();
        readTexts(from, ip);
        if (!from.configuration) continue;
        for (const auto& parameter : from.configuration->parameters)
            ip.addConfigParam(parameter.Name.get(), parameter.Value.get());
    }
}
