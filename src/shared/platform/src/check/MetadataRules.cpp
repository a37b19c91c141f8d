#include "check/MetadataRules.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "hardware/MemorySize.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQPfmFileTypes.h"
#include "text/FirstPieces.h"
#include "text/HSTStringUtils.h"
#include "text/Nearest.h"

namespace check {

namespace {

/// Types of memory in use. The library keeps any text: another one is a warning.
const std::vector<std::string> kMemoryTypes{"ddr",    "ddr2",   "ddr3",    "ddr3l",  "ddr4",    "ddr5",    "lpddr2",
                                            "lpddr3", "lpddr4", "lpddr4x", "lpddr5", "lpddr5x", "gddr5",   "gddr6",
                                            "hbm",    "hbm2",   "hbm2e",   "hbm3",   "rldram2", "rldram3", "qdr2",
                                            "qdr4",   "sram",   "ocm",     "psram",  "bram",    "uram",    "plram"};
const std::vector<std::string> kStatuses{"scalable", "changeable", "fixed", "reserved"};

std::string quoted(const std::string& text) { return "\"" + HSTStringUtils::excerpt(text) + "\""; }

/// Why a memory of this size is not counted in the platform's total; empty if it is.
std::string sizeFault(const std::string& size) {
    if (size.empty()) return "the memory has no size";
    try {
        const int counted = hardware::gigabytesOf(size);
        if (counted > 0) return {};
        if (counted < 0) return "the size " + quoted(size) + " is negative";
    } catch (const std::logic_error&) {
        // Text before the number, or a number that is too large.
    }
    return "the size " + quoted(size) + " is read as 0: expected a number followed by GB, for example 16GB";
}

/// Reports a value that is not one of `known`, ignoring case.
std::string unknownFault(const std::string& value, const std::vector<std::string>& known) {
    if (value.empty() || std::ranges::any_of(known, [&](const auto& k) { return HSTStringUtils::iequals(k, value); }))
        return {};
    return quoted(value) + " is unknown; expected one of " + HSTStringUtils::join(known, ", ");
}

/// Reports a value that is probably one of `known`, misspelled.
std::string slipFault(const std::string& value, const std::vector<std::string>& known) {
    if (std::ranges::any_of(known, [&](const auto& k) { return HSTStringUtils::iequals(k, value); })) return {};
    const auto meant = std::ranges::find_if(known, [&](const auto& k) { return text::isSlip(k, value); });
    return meant == known.end() ? "" : quoted(value) + " is unknown; nearest: " + *meant;
}

/// The types of a platform's files that can be mistaken for another: of three letters, many are in use.
const std::vector<std::string>& fileTypes() {
    static const std::vector<std::string>* const types = [] {
        auto* const list = new std::vector<std::string>;
        for (const auto& [type, text] : HTEQPfmFileTypes::getFileTypeMap()) list->push_back(text);
        return list;
    }();
    return *types;
}

std::string typeFault(const std::string& type, const std::vector<std::string>& known) {
    constexpr std::size_t kShort = 3;
    if (type.empty()) return "the file has no type, so that nothing finds it";
    const std::string fault = type.size() > kShort ? slipFault(type, known) : "";
    return fault.empty() ? fault : "the file type " + fault;
}

/// Each memory that begins before the end of an earlier one, in the order of their addresses.
void checkOverlaps(const std::vector<Memory>& memories, const ReportAt& report) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < memories.size(); ++i)
        if (memories[i].highest > 0 && memories[i].lowest <= memories[i].highest) order.push_back(i);
    std::ranges::sort(order, {}, [&](std::size_t i) { return std::pair(memories[i].lowest, i); });
    for (std::size_t i = 1, last = 0; i < order.size(); ++i) {
        const Memory &before = memories[order[last]], &memory = memories[order[i]];
        if (memory.lowest <= before.highest)
            report(order[i], kOverlappingMemory,
                   "the address range begins within that of the memory " + quoted(before.name));
        if (memory.highest > before.highest) last = i;
    }
}

}  // namespace

void checkMemories(const std::vector<Memory>& memories, const ReportAt& report) {
    std::vector<std::string> names;
    names.reserve(memories.size());
    for (std::size_t i = 0; i < memories.size(); ++i) {
        const Memory& memory = memories[i];
        names.push_back(memory.name);
        if (std::string fault = sizeFault(memory.size); !fault.empty()) report(i, kUncountedMemory, std::move(fault));
        if (const std::string fault = unknownFault(memory.type, kMemoryTypes); !fault.empty())
            report(i, kUnknownMemoryType, "the type " + fault);
        if (memory.lowest > memory.highest)
            report(i, kReversedRange,
                   "the lowest address, " + std::to_string(memory.lowest) + ", is above the highest, " +
                       std::to_string(memory.highest));
    }
    checkNames(names, "memory", report);
    checkOverlaps(memories, report);
}

void checkClocks(const std::vector<Clock>& clocks, long long defaultId, const ReportAt& report,
                 const Report& reportList) {
    std::set<long long> ids;
    std::vector<std::string> names;
    bool hasDefault = clocks.empty(), isChosen = false;
    for (std::size_t i = 0; i < clocks.size(); ++i) {
        const Clock& clock = clocks[i];
        names.push_back(clock.name);
        hasDefault |= clock.id == defaultId || !clock.isKnown;
        if (clock.isDefault && std::exchange(isChosen, true))
            report(i, kRepeatedDefaultClock, "an earlier clock is the default clock too; the last one is used");
        if (clock.id >= 0 && !ids.insert(clock.id).second)
            report(
                i, kRepeatedClockId,
                "an earlier clock also has the id " + std::to_string(clock.id) + "; queries by id give the last one");
        if (std::string fault = frequencyFault(clock.frequency); !fault.empty())
            report(i, kBadFrequency, std::move(fault));
        if (const std::string fault = unknownFault(clock.status, kStatuses); !fault.empty())
            report(i, kUnknownClockStatus, "the status " + fault);
    }
    checkNames(names, "clock", report);
    if (!hasDefault)
        reportList(kNoDefaultClock, "no clock has the id of the default clock, " + std::to_string(defaultId));
}

void checkNames(const std::vector<std::string>& names, const char* what, const ReportAt& report) {
    std::set<std::string_view> seen;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (!names[i].empty() && !seen.insert(names[i]).second)
            report(i, kRepeatedName, std::string("an earlier ") + what + " also has the name " + quoted(names[i]));
}

std::string frequencyFault(const std::string& frequency) {
    const auto digits = [](std::string_view text) {
        return text.find_first_not_of("0123456789") == std::string_view::npos;
    };
    const std::string_view text = HSTStringUtils::trim(frequency);
    const auto point = std::min(text.find('.'), text.size());
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    if (text.empty() || (text != "." && digits(text.substr(0, point)) && digits(fraction))) return {};
    return "the frequency " + quoted(frequency) +
           " is not a decimal number; expected MHz without sign, exponent and unit, for example 300";
}

std::string hostFault(const std::string& architecture) {
    if (HSTStringUtils::iequals(architecture, HPLPlatform::getHostArchAsStr(HostArchType::unknown))) return {};
    const std::string fault = unknownFault(architecture, HPLPlatform::getHostArchTypesAsStr());
    return fault.empty() ? fault : "the host architecture " + fault;
}

std::string hostInterfaceFault(const std::string& interface) {
    static const std::vector<std::string> known{"pcie", "axi"};
    const std::string fault = slipFault(interface, known);
    return fault.empty() ? fault : "the host interface " + fault;
}

/// Letter case matters.
std::string stateFault(const std::string& state) {
    static const std::vector<std::string> known{"synth", "impl", "pre_synth"};
    if (state.empty() || std::ranges::find(known, state) != known.end()) return {};
    return "the state " + quoted(state) + " is unknown; expected one of " + HSTStringUtils::join(known, ", ");
}

std::string assignmentFault(const std::string& text) {
    static const std::vector<std::string> known{"preferred", "true", "false"};
    const std::string fault = unknownFault(text, known);
    return fault.empty() ? fault : "auto=" + fault;
}

std::string partFault(const std::string& part) {
    constexpr const char* kFields[] = {"architecture", "device", "package", "speed grade"};
    const auto fields = text::firstPieces(part, ':', std::size(kFields) + 1);
    for (std::size_t i = 0; i < std::min(fields.size(), std::size(kFields)); ++i)
        if (fields.size() >= std::size(kFields) && HSTStringUtils::trim(fields[i]).empty())
            return std::string("the ") + kFields[i] + " of the part is empty";
    return {};
}

std::string modeFault(const std::string& mode) {
    static const std::vector<std::string> known{"master", "slave"};
    const std::string fault = slipFault(mode, known);
    return fault.empty() ? fault : "the mode " + fault;
}

std::string memoryPortFault(const std::string& port) {
    static const std::vector<std::string> known{"MEMSS"};
    const std::string fault = slipFault(port, known);
    return fault.empty() ? fault : "the memory port " + fault;
}

std::string resourceFault(const std::string& type) {
    static const std::vector<std::string> known{"LUT", "REG", "FF", "BRAM", "DSP", "URAM"};
    const std::string fault = type.size() > 3 ? slipFault(type, known) : "";
    return fault.empty() ? fault : "the resource type " + fault;
}

std::string fileTypeFault(const std::string& type) { return typeFault(type, fileTypes()); }

std::string emulationTypeFault(const std::string& type) {
    static const std::vector<std::string> known{"EMU_HPFM", "EMU_DR_BD", "TOP_BD", "PROP_JSON", "USER_PROP_JSON"};
    return typeFault(type, known);
}

std::string clockFault(long long id, const std::string& frequency, const KnownNames& known) {
    if (!known.frequencies) return {};
    const auto same = known.frequencies->find(id);
    if (same == known.frequencies->end() || !frequencyFault(same->second).empty()) return {};
    double here = 0, there = 0;
    const auto numberOf = [](std::string_view text, double& number) {
        return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
    };
    if (!numberOf(HSTStringUtils::trim(frequency), here) || !numberOf(HSTStringUtils::trim(same->second), there) ||
        std::abs(here - there) < 0.001)
        return {};
    return "the frequency is " + quoted(frequency) + ", in the metadata, which is used, " + quoted(same->second);
}

std::string referenceFault(const char* what, const std::string& name, const std::set<std::string>& known) {
    if (name.empty() || known.empty() || known.contains(name)) return {};
    constexpr std::size_t kMaxSuggestions = 100;  // of which the nearest are named
    std::vector<std::string> some;
    for (auto at = known.begin(); at != known.end() && some.size() < kMaxSuggestions; ++at)
        some.emplace_back(HSTStringUtils::utf8Prefix(*at, 64));
    return std::string("there is no ") + what + " " + quoted(name) +
           HSTStringUtils::excerpt(text::nearest(std::string(HSTStringUtils::utf8Prefix(name, 64)), some),
                                   kMaxReasonText);
}

std::string pathFault(const std::string& name, const std::map<std::string, std::string>& parameters) {
    for (auto dot = name.find('.'); dot != std::string::npos; dot = name.find('.', dot + 1)) {
        const auto above = parameters.find(name.substr(0, dot));
        if (above == parameters.end() || above->second.empty()) continue;
        return "the parameter \"" + HSTStringUtils::excerpt(name) + "\" is a level below \"" +
               HSTStringUtils::excerpt(above->first) + "\", which has a value; no document can hold both";
    }
    return {};
}

void checkIdentity(const Identity* descriptor, const std::string& vendor, const std::string& version,
                   const std::function<void(bool isVendor, std::string text)>& report) {
    if (!descriptor) return;
    constexpr long long kFirstRelease = 2000;  // versions of tools are years
    const auto numbersOf = [](const std::string& text) {
        const auto point = std::min(text.find('.'), text.size());
        return std::pair(HSTStringUtils::toNumber(text),
                         HSTStringUtils::toNumber(text.substr(std::min(point + 1, text.size()))));
    };
    const auto differ = [&](bool isVendor, const std::string& one, const std::string& other) {
        report(isVendor, std::string("the ") + (isVendor ? "vendor" : "version") + " is " + quoted(one) +
                             ", in the descriptor " + quoted(other));
    };
    if (!vendor.empty() && !descriptor->vendor.empty() && vendor != descriptor->vendor)
        differ(true, vendor, descriptor->vendor);
    const auto ours = numbersOf(version);
    if (!descriptor->version.empty() && ours != std::pair(0LL, 0LL) && ours.first < kFirstRelease &&
        ours != numbersOf(descriptor->version))
        differ(false, version, descriptor->version);
}

bool isHpfm(const std::string& type) { return HSTStringUtils::iequals(type, "HPFM"); }

bool isEmulationList(const std::string& type) {
    return HSTStringUtils::iequals(type, "EMU_XML") || HSTStringUtils::iequals(type, "EMU_JSON");
}

void addSlrs(long long count, std::set<std::string>& names) {
    constexpr long long kMaxSlrs = 256;
    for (long long i = 0; i < std::min(count, kMaxSlrs); ++i) names.insert("SLR" + std::to_string(i));
}

}  // namespace check
