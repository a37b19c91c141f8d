#include "ShowHardware.h"

#include <algorithm>
#include <memory>
#include <sstream>

#include <msg/HEXAll.h>
#include <platform/HPLCore.h>
#include <platform/HPLDevice.h>
#include <platform/HPLFile.h>
#include <platform/HPLMemory.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQHardwareBusInterface.h>
#include <platform/HTEQSystemClock.h>
#include <platform/HTEQTilPartition.h>
#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Text.h"

namespace {

using teq_platform::requests::ListedFile;
using Rows = std::vector<std::vector<std::string>>;

/// The elements of one of the model's iterators.
template <class T>
std::vector<T*> all(HSTFwdIter<T*>* made) {
    const std::unique_ptr<HSTFwdIter<T*>> it(made);
    std::vector<T*> items;
    while (it->hasNext()) items.push_back(it->next());
    return items;
}

std::string hexadecimal(unsigned long long value) {
    std::ostringstream text;
    text << "0x" << std::hex << value;
    return text.str();
}

void showIdentity(Text& text, const HPLPlatform& platform) {
    text.line("VBNV", platform.getVBNV());
    text.line("description", platform.getDescription());
    text.line("archive", platform.getPlatformFile());
    text.line("kind", std::string(platform.isUnifiedPlatform() ? "unified, " : "") +
                          (platform.isExpandable() ? "expandable" : "fixed"));
    text.line("state", platform.getPlatformState());
    text.line("made by",
              std::string(HSTStringUtils::trim(platform.getGeneratedName() + " " + platform.getGeneratedVersion())));
    text.line("runs on hardware", yesNo(platform.supportsHardware()));
    text.line("software emulation", yesNo(platform.supportsSWEmulation()));
    text.line("hardware emulation", yesNo(platform.supportsHWEmulation()));
    text.line("board", platform.getBoardPart());
    text.line("hardware database", platform.getHwDbName());
    if (platform.usesPR()) text.line("host", platform.getHostArch() + " by " + platform.getHostInterface());
}

void showDevices(Text& text, const HPLPlatform& platform) {
    for (const HPLDevice* device : all(platform.createDeviceIter())) {
        text.line("device " + device->getName(), device->getPartName());
        if (device->getNumSLRs() > 0) text.line("SLRs", std::to_string(device->getNumSLRs()));
        const HPLCore& core = device->getReadOnlyCore();
        text.line("core", core.getName());
        text.line("compute units", std::to_string(core.getNumComputeUnits()));
        Rows rows;
        for (const auto& [pblock, resources] : core.getReadOnlyPBlockToResourceMap()) {
            const std::set<std::string>* const slrs = core.findSLRNames(pblock);
            const std::string all = slrs ? HSTStringUtils::join({slrs->begin(), slrs->end()}, " ") : "";
            const std::string names(HSTStringUtils::utf8Prefix(all, kMaxCell + 1));  // repeated in each row
            for (const auto& [name, count] : resources) rows.push_back({pblock, names, name, count});
        }
        text.rows("free in the core", {"pblock", "SLRs", "resource", ">count"}, rows);
    }
    HSTVector<std::string> types, counts;
    platform.getAllResources(types, counts);
    Rows rows;
    for (std::size_t i = 0; i < types.size(); ++i) rows.push_back({types[i], counts[i]});
    text.rows("resources", {"type", ">count"}, rows);
}

void showMemories(Text& text, const HPLPlatform& platform) {
    Rows rows;
    for (const HPLMemory* memory : all(platform.createMemoryIter()))
        rows.push_back({memory->getName(), memory->getType(), memory->getSize(),
                        hexadecimal(memory->getLowestAddress()), hexadecimal(memory->getHighestAddress())});
    text.rows("memories", {"name", "type", ">size", ">from", ">to"}, rows);

    rows.clear();
    for (const HTEQHardwarePlatform::MemoryBank& bank : platform.getMemoryBanks())
        rows.push_back({bank.type, std::to_string(bank.number), bank.size, bank.slr});
    text.rows("memory banks available to a linker", {"type", ">bank", ">size", "SLR"}, rows);

    std::ostringstream warning;
    platform.issueNormalizeMemoryBanksMessage(warning);
    if (!warning.str().empty())
        text.note("warning: " + HSTStringUtils::printable(HSTStringUtils::trim(warning.str())));
}

void showClocks(Text& text, const HPLPlatform& platform) {
    const HTEQSystemClock* byDefault = platform.getDefaultClock();
    Rows rows;
    for (const HTEQSystemClock* clock : all(platform.createSystemClockIter()))
        rows.push_back({clock->getName(), std::to_string(clock->getId()), clock->getFrequency(), clock->getStatus(),
                        clock == byDefault ? "default" : ""});
    text.rows("clocks", {"name", ">id", ">frequency", "status", ""}, rows);
}

void showInterfaces(Text& text, const HPLPlatform& platform) {
    Rows rows;
    for (const HTEQHardwareBusInterface* bus : all(platform.createBusInterfaceIter()))
        rows.push_back({bus->getName(), bus->getBusTypeRef(), bus->getMode(), bus->getMemPort(), bus->getSPTag(),
                        std::to_string(bus->getNumAddressSegments())});
    text.rows("interfaces available to a linker", {"name", "type", "mode", "memory port", "tag", ">segments"}, rows);
}

void addTilRows(Rows& rows, const HTEQTilPartition& partition, const std::string& indent) {
    rows.push_back({indent + partition.tilInst(), std::to_string(partition.startColumn()),
                    std::to_string(partition.numColumns()), partition.uuid(), partition.plIntefaceID()});
    for (const HTEQTilPartition& child : partition.partitions()) addTilRows(rows, child, indent + "  ");
}

void showTilPartitions(Text& text, const HPLPlatform& platform) {
    Rows rows;
    try {
        for (const HTEQTilPartition& partition : platform.getTilPartitions()) addTilRows(rows, partition, "");
    } catch (const HEXAll& e) {
        text.note("tile partitions cannot be read: " + HSTStringUtils::printable(e.what()));
    }
    text.rows("tile partitions", {"name", ">first column", ">columns", "UUID", "interface"}, rows);
}

std::string sizeOf(const ListedFile& file) {
    switch (file.state) {
        case ListedFile::State::file: return std::to_string(file.size);
        case ListedFile::State::folder: return "folder";
        case ListedFile::State::missing: return "missing";
    }
    return "";
}

void showFiles(Text& text, const HPLPlatform& platform) {
    Rows rows;
    for (const ListedFile& file : teq_platform::requests::listedFiles(platform))
        rows.push_back({file.type, sizeOf(file), file.member});
    text.rows("files in the archive", {"type", ">bytes", "member"}, rows);
}

}  // namespace

void showHardware(Text& text, const HTEQHardwarePlatform& hardware, const std::string& what) {
    const auto* platform = dynamic_cast<const HPLPlatform*>(&hardware);
    if (!platform) return;
    text.heading(what == "hardware" ? "Hardware" : HSTStringUtils::toUpper(what.substr(0, 1)) + what.substr(1));
    showIdentity(text, *platform);
    showDevices(text, *platform);
    showMemories(text, *platform);
    showClocks(text, *platform);
    showInterfaces(text, *platform);
    showTilPartitions(text, *platform);
    showFiles(text, *platform);
}
