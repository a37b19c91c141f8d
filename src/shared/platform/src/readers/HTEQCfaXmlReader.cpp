#include "platform/HTEQCfaXmlReader.h"

#include <memory>
#include <set>

#include "archive/PlatformArchive.h"
#include "msg/CountedPieces.h"
#include "msg/HEXAll.h"
#include "msg/Printed.h"
#include "platform/HPLAddressSegment.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPCIeId.h"
#include "platform/HPLPlatform.h"
#include "platform/HPLPort.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHpfmReader.h"
#include "readers/Bindings.h"
#include "readers/CfaXmlRules.h"
#include "readers/Reading.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"
#include "zip/ArchiveError.h"
#include "zip/Request.h"

namespace {

using archive::PlatformArchive;
using binding::read;
using readers::isTrue;
using teq_platform::HwMetadataMode;

int numberOf(const std::string& text) { return static_cast<int>(HSTStringUtils::toNumber(text)); }

void readBuild(const BasePlatform::Build& record, HPLPlatform& platform) {
    using Key = HTEQDesignIntentStorage::Key;
    read(record, platform);
    const bool pr = isTrue(record.UsesPR);
    platform.setComputedDesignIntent(Key::dataCenter, pr);
    platform.setComputedDesignIntent(Key::embedded, !pr);
    platform.setComputedDesignIntent(Key::externalHost, pr);
    platform.setComputedDesignIntent(Key::serverManaged, pr);
    if (record.StaticSynthCheckpoint.isSet()) platform.setPlatformState("synth");
    const auto& values = record.ValidBinaryContentValues;
    for (const std::string& value : msg::countedPieces(values.isSet() ? values.get() : "dcp,bitstream", ','))
        platform.addValidBinaryContentValue(value);
    if (record.compileSwitches)
        for (const auto& option : record.compileSwitches->switches)
            platform.addZuncCompileXpSwitch(option.Value.get());
    if (record.linkSwitches)
        for (const auto& option : record.linkSwitches->switches) platform.addZuncLinkXpSwitch(option.Value.get());
}

void readMemory(const BasePlatform::Memory& record, HPLMemory& memory) {
    read(record, memory);
    if (!record.config) return;
    for (const auto& param : record.config->params) memory.addConfigParam(param.Name.get(), param.Value.get());
}

void readConnector(const BasePlatform::Connector& record, HPLBoard::DimmConnector& connector) {
    read(record, connector);
    connector.setConnected(!record.ConnectedConnector.get().empty());
}

void readImages(const BasePlatform::Images& record, HPLBoard& board) {
    for (const auto& image : record.imgs) {
        const std::string& type = image.Type.get();
        if (type == "HDPI") board.setImgFileHdpi(image.File.get());
        if (type == "MDPI") board.setImgFileMdpi(image.File.get());
        if (type == "LDPI") board.setImgFileLdpi(image.File.get());
    }
}

/// Drivers are not read.
void readBoard(const BasePlatform::Board& record, HPLPlatform& platform) {
    HPLBoard& board = platform.getBoard();
    read(record, board);
    if (record.interfaces && record.interfaces->interface)
        read(*record.interfaces->interface, *platform.addInterface());
    if (record.memories)
        for (const auto& memory : record.memories->memories) readMemory(memory, *platform.addMemory());
    if (record.connectors)
        for (const auto& connector : record.connectors->connectors)
            readConnector(connector, *board.addDimmConnector());
    readImages(record.images, board);
    if (record.pcieId) read(*record.pcieId, board.getWriteablePCIeId());
}

/// The core keeps the texts; the platform gets numbers, without the registers.
void readResources(const BasePlatform::AvailableResources& record, HPLCore& core, HPLPlatform& platform) {
    read(record, core);
    if (const auto& bram = record.BRAM.get(); !bram.empty()) platform.setBRAMCount(numberOf(bram));
    if (const auto& dsp = record.DSP.get(); !dsp.empty()) platform.setDSPCount(numberOf(dsp));
    if (const auto& lut = record.LUT.get(); !lut.empty()) platform.setLUTCount(numberOf(lut));
    for (const auto& pblock : record.pblocks) {
        const std::string& name = pblock.Name.get();
        if (pblock.ValidSLRs.isSet()) core.addSLRInfo(name, pblock.ValidSLRs.get());
        for (const auto& resource : pblock.resources)
            core.addResourceInfo(name, resource.Name.get(), resource.Val.get());
    }
}

void readPort(const BasePlatform::Port& record, HPLPort& port) {
    read(record, port);
    if (!record.addressSegments) return;
    for (const auto& from : record.addressSegments->segments) {
        auto segment = std::make_unique<HPLAddressSegment>();
        read(from, *segment);
        port.addAddressSegment(segment.release());
    }
}

void readCore(const BasePlatform::Core& record, HPLCore& core, HPLPlatform& platform) {
    read(record, core);
    if (!record.innerCore) return;
    const BasePlatform::InnerCore& inner = *record.innerCore;
    if (inner.config)
        for (const auto& param : inner.config->params) core.addConfigParam(param.Name.get(), param.Value.get());
    for (const auto& port : inner.ports) readPort(port, *core.addPort());
    if (inner.availableResources) readResources(*inner.availableResources, core, platform);
}

void readDevice(const BasePlatform::Device& record, HPLDevice& device, HPLPlatform& platform) {
    read(record, device);
    if (record.systemClocks)
        for (const auto& clock : record.systemClocks->clocks)
            device.addSystemClock(clock.Name.get(), clock.Frequency.get());
    readCore(record.core, device.getCore(), platform);
}

void readDesignIP(const BasePlatform::IP& record, HTEQDesignIPInstance& ip) {
    read(record, ip);
    if (!record.configuration) return;
    for (const auto& parameter : record.configuration->parameters)
        ip.addConfigParam(parameter.Name.get(), parameter.Value.get());
}

/// Fills a platform from its archive's document and the members that it lists.
class Filling {
public:
    Filling(const PlatformArchive& opened, const std::string& archive, HPLPlatform& platform)
        : opened_(opened), archive_(archive), platform_(platform) {}

    void fill(const BasePlatform::Root& record) {
        read(record.genAppInfo.value_or(BasePlatform::GenAppInfo()), platform_);
        const BasePlatform::CFA& cfa = record.cfa;
        read(cfa, platform_);
        // Without the attribute, a platform is fixed if its archive has a hardware definition.
        platform_.setExpandable(cfa.Fixed.isSet()
                                    ? !isTrue(cfa.Fixed)
                                    : !opened_.contains("hwdef.xml") && !opened_.contains("sysdef.xml"));
        if (cfa.host) read(*cfa.host, platform_);
        readBuild(cfa.build, platform_);
        readBoard(cfa.board, platform_);
        for (const auto& device : cfa.devices.devices) readDevice(device, *platform_.addDevice(), platform_);
        for (const auto& file : cfa.files.files) readFile_(file);
        if (cfa.featureRom) read(*cfa.featureRom, *platform_.addFeatureRom());
        if (cfa.designIPs)
            for (const auto& ip : cfa.designIPs->ips) readDesignIP(ip, *platform_.addDesignIPInstance());
    }

private:
    void readFile_(const BasePlatform::File& record) {
        const std::string &type = record.Type.get(), &name = record.Name.get();
        read(record, *platform_.addFile(type, name));
        if (HSTStringUtils::iequals(type, "HPFM")) parseHpfm_(name);
        if (HSTStringUtils::iequals(type, "EMU_XML")) parseEmulations_(name);
    }

    void parseHpfm_(const std::string& member) {
        const std::optional<std::string> text = opened_.textOrWarning(member);
        if (!text) return;
        // Each entry of the list adds its file's content, and the same file may be listed a hundred thousand times.
        hpfmBytes_ += text->size();
        if (hpfmBytes_ > archive::kMetadataBound)
            throw HEXUserException("the hpfm files that '" + archive_ + "' lists hold more than " +
                                   std::to_string(archive::kMetadataBound) + " bytes in all");
        platform_.setHpfmString(*text);
        if (!HTEQHpfmReader(*text, &platform_).parseStream()) {
            msg::print("Failed to parse hpfm stream from '" + member + "' in " + archive_ + "\n");
            return;
        }
        platform_.setUnifiedPlatform(true);
        platform_.setExpandable(true);
    }

    void parseEmulations_(const std::string& member) {
        if (!emulationsRead_.insert(member).second) return;
        HTEQEmulations emulations;
        HTEQEmulationXMLReader::readFromCfa(archive_, member, &emulations);
        for (const HTEQEmulation* emulation : emulations.getEmulations())
            for (const HTEQEmulationFile* file : emulation->getFiles())
                if (file->getType() == "EMU_HPFM") platform_.setSupportsHWEmulation(true);
    }

    const PlatformArchive& opened_;
    const std::string& archive_;
    HPLPlatform& platform_;
    std::uint64_t hpfmBytes_ = 0;           ///< total of the files read
    std::set<std::string> emulationsRead_;  ///< members
};

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
            archive_, member_, [&] { Filling(*opened_, archive_, *platform_).fill(root); },
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

/// Calls `use` with the archive's document.
void HTEQCfaXmlReader::readRoot_(HwMetadataMode asked, const std::function<void(const BasePlatform::Root&)>& use) {
    const zip::Request request;
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

/// A member that cannot be opened is reported like an empty document: as an error in line 1.
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

/// Why the document is refused; empty if it is not.
std::string HTEQCfaXmlReader::newerSchema_(const BasePlatform::Root& root) const {
    if (!readers::isNewerSchema(root)) return {};
    const auto major = static_cast<std::int32_t>(root.VersionMajor.get());
    return "Hardware Platform '" + archive_ + "' (version " + std::to_string(major) +
           ") is newer than the current version " + std::to_string(readers::currentSchema()) + " (" +
           HUTEnv::getFullBuildStr() + ")";
}
