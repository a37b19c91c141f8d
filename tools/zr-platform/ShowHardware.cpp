#include "ShowHardware.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>

#include <msg/HEXAll.h>
#include <platform/HPLCore.h>
#include <platform/HPLDevice.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQTilPartition.h>
#include <platform/PlatformParts.h>
#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Text.h"

namespace {

namespace requests = teq_platform::requests;
using requests::Assignment;
using requests::BankPart;
using requests::ListedFile;
using requests::Parts;
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

/// "300 MHz" for "300.000000"; another text is not changed.
std::string megahertz(const std::string& frequency) {
    if (frequency.empty() || frequency.find_first_not_of("0123456789.") != std::string::npos) return frequency;
    std::string number = frequency;
    if (number.find('.') != std::string::npos) number.erase(number.find_last_not_of('0') + 1);
    if (number.ends_with('.')) number.pop_back();
    return number + " MHz";
}

const char* nameOf(Assignment assignment) {
    switch (assignment) {
        case Assignment::unknown: return "";
        case Assignment::allowed: return "assignable";
        case Assignment::byDefault: return "default";
        case Assignment::notAllowed: return "not assignable";
    }
    return "";
}

std::string targetsOf(const HPLPlatform& platform) {
    std::vector<std::string> targets;
    if (platform.supportsHardware()) targets.emplace_back("hardware");
    if (platform.supportsSWEmulation()) targets.emplace_back("software emulation");
    if (platform.supportsHWEmulation()) targets.emplace_back("hardware emulation");
    return HSTStringUtils::join(targets, ", ");
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
    text.line("targets", targetsOf(platform));
    text.line("board", platform.getBoardPart());
    text.line("hardware database", platform.getHwDbName());
    if (platform.usesPR()) text.line("host", platform.getHostArch() + " by " + platform.getHostInterface());
}

/// The names, or the first ones of many.
std::string shownNames(const std::set<std::string>* names) {
    constexpr std::size_t kMost = 1000;  // of what each row may repeat
    std::string text;
    if (!names) return text;
    for (const std::string& name : *names) {
        if (text.size() > kMost) break;
        text += (text.empty() ? "" : " ") + HSTStringUtils::cut(name, kMost);
    }
    return HSTStringUtils::cut(text, kMost);
}

/// A row for each pblock, a column for each resource.
void showPBlocks(Text& text, const HPLCore& core) {
    constexpr std::size_t kMaxColumns = 12;
    const auto& blocks = core.getReadOnlyPBlockToResourceMap();
    std::set<std::string> names;
    for (const auto& [pblock, resources] : blocks)
        for (const auto& [name, count] : resources) names.insert(name);
    std::vector<std::string> columns{"pblock", "SLRs"};
    for (const std::string& name : names)
        if (columns.size() < kMaxColumns) columns.push_back(">" + name);
    Rows rows;
    boost::json::array items;
    std::map<const std::set<std::string>*, std::string>
        slrs;  // pblocks whose names differ in case have the same ones
    for (const auto& [pblock, resources] : blocks) {
        const auto [known, isNew] = slrs.try_emplace(core.findSLRNames(pblock));
        if (isNew) known->second = shownNames(known->first);
        const std::string& all = known->second;
        std::vector<std::string> row(columns.size());
        row[0] = pblock;
        row[1] = HSTStringUtils::utf8Prefix(all, kMaxCell + 1);
        boost::json::object counts;
        for (const auto& [name, count] : resources) {
            counts[name] = count;
            const auto at = std::find(columns.begin() + 2, columns.end(), ">" + name);
            if (at != columns.end()) row[static_cast<std::size_t>(at - columns.begin())] = count;
        }
        rows.push_back(std::move(row));
        if (text.takes(items))
            items.push_back(boost::json::object{{"name", pblock}, {"SLRs", all}, {"resources", std::move(counts)}});
    }
    text.rows("free in the core", columns, rows, std::move(items));
    if (names.size() + 2 > kMaxColumns)
        text.note("and " + std::to_string(names.size() + 2 - kMaxColumns) + " more resources");
}

void showDevices(Text& text, const HPLPlatform& platform) {
    for (const HPLDevice* device : all(platform.createDeviceIter())) {
        text.item("device " + device->getName());
        text.line("device " + device->getName(), device->getPartName());
        if (device->getNumSLRs() > 0) text.line("SLRs", std::to_string(device->getNumSLRs()));
        const HPLCore& core = device->getReadOnlyCore();
        text.line("core", core.getName());
        if (core.getNumComputeUnits() > 0) text.line("compute units", std::to_string(core.getNumComputeUnits()));
        showPBlocks(text, core);
    }
    text.item("");
    HSTVector<std::string> types, counts;
    platform.getAllResources(types, counts);
    Rows rows;
    for (std::size_t i = 0; i < types.size(); ++i) rows.push_back({types[i], counts[i]});
    text.rows("resources", {"type", ">count"}, rows);
}

void showMemories(Text& text, const Parts& parts) {
    Rows rows;
    boost::json::array items;
    for (const auto& memory : parts.memories) {
        const bool isKnown = memory.highest > 0;
        rows.push_back({memory.name, memory.type, memory.size, isKnown ? hexadecimal(memory.lowest) : "",
                        isKnown ? hexadecimal(memory.highest) : ""});
        if (text.takes(items))
            items.push_back(boost::json::object{{"name", memory.name},
                                                {"type", memory.type},
                                                {"size", memory.size},
                                                {"lowestAddress", memory.lowest},
                                                {"highestAddress", memory.highest}});
    }
    text.rows("memories", {"name", "type", ">size", ">from", ">to"}, rows, std::move(items));
}

/// Consecutive numbers as "0-30".
std::string rangeOf(unsigned first, unsigned last) {
    return first == last ? std::to_string(first) : std::to_string(first) + "-" + std::to_string(last);
}

/// The assignments of the banks [first, last), as "default 0-30, not assignable 31"; without numbers if they are all
/// the same.
std::string assignmentsOf(const HSTVector<BankPart>& banks, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t at = first; at < last;) {
        std::size_t end = at + 1;
        while (end < last && banks[end].assignment == banks[at].assignment) ++end;
        const std::string name = nameOf(banks[at].assignment);
        if (!name.empty() && text.size() < kMaxCell)
            text += (text.empty() ? "" : ", ") + name +
                    (at == first && end == last ? "" : " " + rangeOf(banks[at].number, banks[end - 1].number));
        at = end;
    }
    return text;
}

/// A row for each run of banks of the same type, SLR and size.
void showBanks(Text& text, const HSTVector<BankPart>& banks) {
    Rows rows;
    boost::json::array items;
    for (std::size_t first = 0; first < banks.size();) {
        const BankPart& bank = banks[first];
        std::size_t last = first + 1;
        const auto continues = [&](const BankPart& other) {
            return other.type == bank.type && other.slr == bank.slr && other.size == bank.size;
        };
        while (last < banks.size() && continues(banks[last])) ++last;
        rows.push_back({bank.type, rangeOf(bank.number, banks[last - 1].number), bank.slr, bank.size,
                        assignmentsOf(banks, first, last)});
        first = last;
    }
    for (const BankPart& bank : banks)
        if (text.takes(items))
            items.push_back(boost::json::object{{"type", bank.type},
                                                {"number", bank.number},
                                                {"size", bank.size},
                                                {"slr", bank.slr},
                                                {"interface", bank.interface},
                                                {"segment", bank.segment},
                                                {"index", bank.index},
                                                {"assignment", nameOf(bank.assignment)}});
    text.rows("memory banks available to a linker", {"type", ">bank", "SLR", ">size", "assignment"}, rows,
              std::move(items));
}

void showClocks(Text& text, const Parts& parts) {
    Rows rows;
    boost::json::array items;
    for (const auto& clock : parts.clocks) {
        rows.push_back({clock.name, clock.id < 0 ? "" : std::to_string(clock.id), megahertz(clock.frequency),
                        clock.status, clock.isDefault ? "default" : ""});
        if (text.takes(items))
            items.push_back(boost::json::object{{"name", clock.name},
                                                {"originalName", clock.originalName},
                                                {"id", clock.id},
                                                {"frequency", clock.frequency},
                                                {"status", clock.status},
                                                {"default", clock.isDefault}});
    }
    text.rows("clocks", {"name", ">id", ">frequency", "status", ""}, rows, std::move(items));
}

boost::json::array recordsOf(const HSTVector<requests::SegmentPart>& segments) {
    boost::json::array items;
    for (const auto& segment : segments)
        items.push_back(boost::json::object{{"name", segment.name},
                                            {"baseName", segment.baseName},
                                            {"index", segment.index},
                                            {"tag", segment.tag},
                                            {"slr", segment.slr},
                                            {"memoryInstance", segment.memoryInstance},
                                            {"assignment", nameOf(segment.assignment)}});
    return items;
}

void showInterfaces(Text& text, const Parts& parts) {
    Rows rows;
    boost::json::array items;
    for (const auto& bus : parts.interfaces) {
        rows.push_back({bus.name, bus.type, bus.mode, bus.memoryPort, bus.tag,
                        bus.segments.empty() ? "" : std::to_string(bus.segments.size())});
        if (text.takes(items))
            items.push_back(boost::json::object{{"name", bus.name},
                                                {"type", bus.type},
                                                {"mode", bus.mode},
                                                {"memoryPort", bus.memoryPort},
                                                {"tag", bus.tag},
                                                {"slr", bus.slr},
                                                {"size", bus.size},
                                                {"clock", bus.clock},
                                                {"dataWidth", bus.dataWidth},
                                                {"segments", recordsOf(bus.segments)}});
    }
    text.rows("interfaces available to a linker", {"name", "type", "mode", "memory port", "tag", ">segments"}, rows,
              std::move(items));
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
    for (const ListedFile& file : requests::listedFiles(platform))
        rows.push_back({file.type, sizeOf(file), file.member});
    text.rows("files in the archive", {"type", ">bytes", "member"}, rows);
}

}  // namespace

void showHardware(Text& text, const HTEQHardwarePlatform& hardware, const std::string& what) {
    const auto* platform = dynamic_cast<const HPLPlatform*>(&hardware);
    if (!platform) return;
    const Parts parts = requests::partsOf(*platform);
    text.heading(HSTStringUtils::toUpper(what.substr(0, 1)) + what.substr(1), what);
    showIdentity(text, *platform);
    showDevices(text, *platform);
    showMemories(text, parts);
    showBanks(text, parts.banks);
    showClocks(text, parts);
    showInterfaces(text, parts);
    showTilPartitions(text, *platform);
    showFiles(text, *platform);
    std::ostringstream warning;
    platform->issueNormalizeMemoryBanksMessage(warning);
    if (!warning.str().empty()) text.warning(std::string(HSTStringUtils::trim(warning.str())));
}

std::string summaryOf(const HTEQHardwarePlatform& hardware) {
    std::string text;
    const auto add = [&](const std::string& part) {
        if (!part.empty()) text += ", " + part;
    };
    const Parts parts = requests::partsOf(hardware);
    add(hardware.getPartName());
    if (const auto* const platform = dynamic_cast<const HPLPlatform*>(&hardware);
        platform && !parts.memories.empty()) {
        const std::size_t count = parts.memories.size();
        const std::string memories = std::to_string(count) + (count == 1 ? " memory" : " memories");
        try {
            const unsigned size = platform->getTotalMemSizeInGb();
            add(size > 0 ? std::to_string(size) + " GB in " + memories : memories);
        } catch (const std::logic_error&) {  // a size that is not a number
            add(memories);
        }
    }
    for (const auto& clock : parts.clocks)
        if (clock.isDefault && !clock.frequency.empty()) add("default clock " + megahertz(clock.frequency));
    return text;
}
