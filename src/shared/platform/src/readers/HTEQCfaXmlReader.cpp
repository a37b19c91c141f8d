#include "platform/HTEQCfaXmlReader.h"

#include <memory>
#include <set>

#include "archive/Request.h"
#include "msg/Capture.h"
#include "msg/HEXAll.h"
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
#include "readers/Printed.h"
#include "readers/Problem.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"
#include "zip/ArchiveError.h"

namespace {

using binding::read;
using readers::isTrue;

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
    for (const std::string& value : HSTStringUtils::split(values.isSet() ? values.get() : "dcp,bitstream", ','))
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

/// The core keeps the texts; the platform gets numbers, and none of the registers.
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

/// Fills a platform from the document of its archive, and from the members that the document lists.
class Filling {
public:
    Filling(const std::string& archive, HPLPlatform& platform) : archive_(archive), platform_(platform) {}

    void fill(const BasePlatform::Root& record) {
        read(record.genAppInfo.value_or(BasePlatform::GenAppInfo()), platform_);
        const BasePlatform::CFA& cfa = record.cfa;
        read(cfa, platform_);
        // A platform that does not tell is fixed when its archive has a hardware definition.
        platform_.setExpandable(cfa.Fixed.isSet() ? !isTrue(cfa.Fixed)
                                                  : !contains_("hwdef.xml") && !contains_("sysdef.xml"));
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
    bool contains_(const std::string& member) const { return archive::open(archive_)->contains(member); }

    void readFile_(const BasePlatform::File& record) {
        const std::string &type = record.Type.get(), &name = record.Name.get();
        read(record, *platform_.addFile(type, name));
        if (HSTStringUtils::iequals(type, "HPFM")) parseHpfm_(name);
        if (HSTStringUtils::iequals(type, "EMU_XML")) parseEmulations_(name);
    }

    void parseHpfm_(const std::string& member) {
        const std::optional<std::string> text = archive::open(archive_)->read(member);
        if (!text) return;
        // Each row of the list adds what its file says, and a stranger may list one file a hundred thousand times.
        hpfmBytes_ += text->size();
        if (hpfmBytes_ > archive::kMetadataBound)
            throw HEXUserException("the hpfm files that '" + archive_ + "' lists hold more than " +
                                   std::to_string(archive::kMetadataBound) + " bytes in all");
        platform_.setHpfmString(*text);
        if (!HTEQHpfmReader(*text, &platform_).parseStream()) {
            readers::print("Failed to parse hpfm stream from '" + member + "' in " + archive_ + "\n");
            return;
        }
        platform_.setUnifiedPlatform(true);
        platform_.setExpandable(true);
    }

    void parseEmulations_(const std::string& member) {
        if (!emulationsRead_.insert(member).second) return;
        HTEQEmulations emulations;
        HTEQEmulationXMLReader::parseFromCfa(archive_, member, &emulations);
        for (const HTEQEmulation* emulation : emulations.getEmulations())
            for (const HTEQEmulationFile* file : emulation->getFiles())
                if (file->getType() == "EMU_HPFM") platform_.setSupportsHWEmulation(true);
    }

    const std::string& archive_;
    HPLPlatform& platform_;
    std::uint64_t hpfmBytes_ = 0;           ///< of all that were read
    std::set<std::string> emulationsRead_;  ///< members
};

}  // namespace

HTEQCfaXmlReader::HTEQCfaXmlReader(const std::string& archive, HPLPlatform* platform)
    : archive_(archive), platform_(platform) {
    if (archive.empty() || !HUTPathUtils::exists(archive)) throw HEXFileNotFoundException(archive);
}

bool HTEQCfaXmlReader::parseCFA() {
    return withRoot_([this](const BasePlatform::Root& root) {
        std::string error;
        if (!canCfaBeOpened_(root, error)) {
            ComMsgMgr::sendMsg("@74-52@%s", error);
            return false;
        }
        Filling(archive_, *platform_).fill(root);
        return true;
    });
}

bool HTEQCfaXmlReader::getRootVersion(int& major, int& minor) {
    return withRoot_([&](const BasePlatform::Root& root) {
        major = static_cast<int>(root.VersionMajor.get());
        minor = static_cast<int>(root.VersionMinor.get());
        return true;
    });
}

/// Gives `use` the archive's document; what it cannot be read for, or `use` throws, becomes a message.
template <class Use>
bool HTEQCfaXmlReader::withRoot_(Use use) {
    std::string member;
    try {
        platform_->setPlatformFile(HUTFile::getCanonicalName(archive_));
        member = platform_->getXmlFileName();
        return use(xml::read(BasePlatform::kDocument, textOf_(member), archive_ + "!" + member));
    } catch (const xml::Exception& e) {
        msg::Capture::send(
            ComMsgMgr::make("@74-62@%s%s%d", e.what(), archive_ + HUTFile::getDirSeparator() + member, e.line()),
            readers::problemOf(e, archive_, member));
    } catch (const std::exception& e) {
        msg::Capture::send(ComMsgMgr::make("@74-65@%s%s%s", member, archive_, e.what()),
                           readers::problemOf(e, archive_, member));
    }
    return false;
}

/// A member that cannot be opened fails as an empty document would, with better words.
std::string HTEQCfaXmlReader::textOf_(const std::string& member) const {
    std::string reason = "the archive has no such member";
    try {
        if (std::optional<std::string> text = archive::open(archive_)->read(member)) return std::move(*text);
    } catch (const zip::ArchiveError& e) {
        reason = e.what();
    }
    xml::Violation violation;
    violation.place = {.file = archive_ + "!" + member, .line = 1, .column = 1};
    violation.text = reason;
    throw xml::Exception(std::move(violation));
}

bool HTEQCfaXmlReader::canCfaBeOpened_(const BasePlatform::Root& root, std::string& error) const {
    if (!readers::isNewerSchema(root)) return true;
    const auto major = static_cast<std::int32_t>(root.VersionMajor.get());
    error = "Hardware Platform '" + archive_ + "' (version " + std::to_string(major) +
            ") is newer than the current version " + std::to_string(readers::currentSchema()) + " (" +
            HUTEnv::getFullBuildStr() + ")";
    return false;
}
