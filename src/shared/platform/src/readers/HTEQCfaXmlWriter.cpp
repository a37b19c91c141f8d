#include "platform/HTEQCfaXmlWriter.h"

#include <fmt/core.h>

#include <limits>
#include <memory>

#include "msg/Budget.h"
#include "platform/HPLAddressSegment.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPCIeId.h"
#include "platform/HPLPlatform.h"
#include "platform/HPLPort.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "readers/Bindings.h"
#include "readers/DocumentFile.h"
#include "text/HSTStringUtils.h"
#include "xml/XmlWriter.h"

namespace {

using binding::write;

constexpr const char* kDefaultBinaryFormat = "rovapk2";

/// Calls `use` with each object of an iterator created by the model.
template <class T, class Use>
void forEach(HSTFwdIter<T*>* made, Use use) {
    const std::unique_ptr<HSTFwdIter<T*>> it(made);
    while (it->hasNext()) use(*it->next());
}

/// The entries of a map, as records with name and value.
template <auto Name, auto Value, class Record>
void writePairs(const std::map<std::string, std::string>& entries, std::vector<Record>& records) {
    for (const auto& [name, value] : entries) {
        Record& record = records.emplace_back();
        (record.*Name).set(name);
        (record.*Value).set(value);
    }
}

/// The list element, created for its first item: an empty list has no element.
template <class List>
List& listOf(std::optional<List>& list) {
    return list ? *list : list.emplace();
}

/// Switches, all named "xp": the reader drops their original names.
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

void checkComputeUnits(const HPLCore& core) {
    constexpr unsigned kMax = std::numeric_limits<std::uint8_t>::max();
    const unsigned units = core.getNumComputeUnits();
    if (units <= kMax) return;
    xml::Violation violation;
    violation.element = "Core";
    violation.text = fmt::format("ComputeUnits=\"{}\" of <Core> is above the maximum, {}", units, kMax);
    throw xml::Exception(violation);
}

void writeBuild(const HPLPlatform& platform, BasePlatform::Build& build) {
    write(platform, build);
    if (const std::string& format = platform.getAcceleratorBinaryFormat(); format != kDefaultBinaryFormat)
        build.AcceleratorBinaryFormat.set(format);
    if (std::string values = platform.getValidBinaryContentValuesAsStr(); !values.empty())
        build.ValidBinaryContentValues.set(std::move(values));
    build.compileSwitches = switchesOf<BasePlatform::ZuncCompileSwitches>(platform.getZuncCompileXpSwitches());
    build.linkSwitches = switchesOf<BasePlatform::ZuncLinkSwitches>(platform.getZuncLinkXpSwitches());
}

void writeMemories(const HPLPlatform& platform, BasePlatform::Board& record) {
    using BasePlatform::Param;
    forEach(platform.createMemoryIter(), [&](const HPLMemory& memory) {
        BasePlatform::Memory& to = listOf(record.memories).memories.emplace_back();
        write(memory, to);
        if (const auto& params = memory.getReadOnlyConfigParamMap(); !params.empty())
            writePairs<&Param::Name, &Param::Value>(params, to.config.emplace().params);
    });
}

void writeImages(const HPLBoard& board, BasePlatform::Images& record) {
    const std::pair<const char*, const std::string&> images[] = {
        {"HDPI", board.getImgFileHdpi()}, {"MDPI", board.getImgFileMdpi()}, {"LDPI", board.getImgFileLdpi()}};
    for (const auto& [type, file] : images) {
        BasePlatform::Img& to = record.imgs.emplace_back();
        to.Type.set(type);
        to.File.set(file);
    }
}

void writeBoard(const HPLPlatform& platform, BasePlatform::Board& record) {
    const HPLBoard& board = platform.getReadOnlyBoard();
    write(board, record);
    // The form holds one interface: the last one.
    forEach(platform.createInterfaceIter(), [&](const HPLInterface& interface) {
        write(interface, record.interfaces.emplace().interface.emplace());
    });
    writeMemories(platform, record);
    HSTVector<HPLBoard::DimmConnector*> connectors;
    board.getConnectorsVec(connectors);
    for (const HPLBoard::DimmConnector* connector : connectors)
        write(*connector, listOf(record.connectors).connectors.emplace_back());
    writeImages(board, record.images);
    if (platform.usesPR() || platform.isFlatShell()) write(board.getPCIeId(), record.pcieId.emplace());
}

void writeDesignIPs(const HPLPlatform& platform, BasePlatform::CFA& record) {
    using BasePlatform::Parameter;
    forEach(platform.createDesignIPInstanceIter(), [&](const HTEQDesignIPInstance& ip) {
        BasePlatform::IP& to = listOf(record.designIPs).ips.emplace_back();
        write(ip, to);
        std::map<std::string, std::string> params;
        ip.getConfigParamMap(params);
        if (!params.empty())
            writePairs<&Parameter::Name, &Parameter::Value>(params, to.configuration.emplace().parameters);
    });
}

void writeResources(const HPLCore& core, BasePlatform::InnerCore& record) {
    using BasePlatform::Resource;
    BasePlatform::AvailableResources& to = record.availableResources.emplace();
    write(core, to);
    for (const auto& [name, resources] : core.getReadOnlyPBlockToResourceMap()) {
        BasePlatform::PBlock& pblock = to.pblocks.emplace_back();
        pblock.Name.set(name);
        if (const auto* found = core.findSLRNames(name))
            if (std::string names = HSTStringUtils::join({found->begin(), found->end()}, ","); !names.empty())
                Budget::spend(Cost::text, names.size()), pblock.ValidSLRs.set(std::move(names));
        writePairs<&Resource::Name, &Resource::Val>(resources, pblock.resources);
    }
}

void writeCore(const HPLCore& core, BasePlatform::Core& record) {
    using BasePlatform::InnerCoreConfigParam;
    checkComputeUnits(core);
    write(core, record);
    BasePlatform::InnerCore& inner = record.innerCore.emplace();
    writeResources(core, inner);
    if (const auto& params = core.getReadOnlyConfigParamMap(); !params.empty())
        writePairs<&InnerCoreConfigParam::Name, &InnerCoreConfigParam::Value>(params, inner.config.emplace().params);
    forEach(core.createPortIter(), [&](const HPLPort& port) {
        BasePlatform::Port& to = inner.ports.emplace_back();
        write(port, to);
        forEach(port.createAddressSegmentIter(), [&](const HPLAddressSegment& segment) {
            write(segment, listOf(to.addressSegments).segments.emplace_back());
        });
    });
}

void writeDevices(const HPLPlatform& platform, BasePlatform::Devices& record) {
    using BasePlatform::SystemClock;
    forEach(platform.createDeviceIter(), [&](const HPLDevice& device) {
        BasePlatform::Device& to = record.devices.emplace_back();
        write(device, to);
        if (const auto& clocks = device.getSystemClockMap(); !clocks.empty())
            writePairs<&SystemClock::Name, &SystemClock::Frequency>(clocks, to.systemClocks.emplace().clocks);
        writeCore(device.getReadOnlyCore(), to.core);
    });
}

void writeCFA(const HPLPlatform& platform, BasePlatform::CFA& record) {
    write(platform, record);
    record.Fixed.set(platform.isExpandable() ? "false" : "true");
    if (platform.usesPR()) write(platform, record.host.emplace());
    writeBuild(platform, record.build);
    writeBoard(platform, record.board);
    writeDesignIPs(platform, record);
    writeDevices(platform, record.devices);
    const auto [begin, end] = platform.getFileVecRange();
    for (auto it = begin; it != end; ++it) write(**it, record.files.files.emplace_back());
    // The form holds one ROM: the first one.
    if (const auto [first, last] = platform.getFeatureRomVecRange(); first != last)
        write(**first, record.featureRom.emplace());
}

std::string documentOf(const HPLPlatform& platform) {
    BasePlatform::Root root;
    root.VersionMajor.set(root.VersionMajor.get());
    root.VersionMinor.set(root.VersionMinor.get());
    write(platform, root.genAppInfo.emplace());
    writeCFA(platform, root.cfa);
    return xml::write(BasePlatform::kDocument, root);
}

}  // namespace

HTEQCfaXmlWriter::HTEQCfaXmlWriter(HPLPlatform* platform, std::string file)
    : platform_(platform), file_(std::move(file)) {}

void HTEQCfaXmlWriter::writeCFA() {
    readers::writeDocument(file_, [this] { return documentOf(*platform_); });
}

std::string HTEQCfaXmlWriter::getText() const { return documentOf(*platform_); }
