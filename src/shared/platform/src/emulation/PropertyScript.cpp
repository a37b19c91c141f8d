#include "emulation/PropertyScript.h"

#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "util/HUTConvert.h"

namespace emulation {
namespace {

using tcl::Form;
using tcl::word;

constexpr std::size_t kMaxScript = 4 << 20;

/// Appends lines, which repeat and escape texts of any size.
class Lines {
public:
    template <class... Parts>
    void add(const Parts&... parts) {
        if (text_.size() + (std::string_view(parts).size() + ...) > kMaxScript)
            throw HEXFileFault({.text = "the property script would have more than 4 MiB"});
        ((text_ += parts), ...);
        text_ += '\n';
    }
    std::string take() { return std::move(text_); }

private:
    std::string text_;
};

std::string keyWord(const std::string& key, const Property& property, Form form) {
    return word({key, property.isTrusted}, form);
}

void addBanks(const Properties& properties, Lines& lines) {
    for (const auto& [number, pairs] : properties.banks) {
        const std::string name = "boardMemories_" + std::to_string(number);
        for (const auto& [key, value] : pairs)
            lines.add(" dict set ", name, " ", keyWord(key, value, Form::bare), " ", word(value.text(), Form::bare));
        lines.add(" lappend boardMemories $", name);
    }
}

void addInstances(const Properties& properties, Lines& lines) {
    int number = 0;
    for (const auto& [tag, pairs] : properties.instances) {
        const std::string name = "instance" + std::to_string(number++);
        for (const auto& [key, value] : pairs)
            lines.add(" dict set ", name, " ", keyWord(key, value, Form::bare), " ",
                      word(value.text(), Form::braced));
        lines.add(" dict set instanceConfig ", keyWord(tag, pairs.begin()->second, Form::bare), " $", name);
    }
}

void addClocks(const Properties& properties, Lines& lines) {
    lines.add(" set clk_info [dict create]");
    for (const auto& [key, value] : properties.clocks)
        lines.add(" dict set clk_info ", keyWord(key, value, Form::quoted), " ", word(value.text(), Form::bare));
}

void addFeatureRom(const HPLPlatform& platform, Lines& lines) {
    lines.add(" set feature_map_info [dict create]");
    const auto [first, last] = platform.getFeatureRomVecRange();
    if (first == last) return;
    for (unsigned i = 0; i < HTEQHardwareFeatureRom::getCDMABaseAddressSize(); ++i) {
        const std::uint32_t address = (*first)->getCDMABaseAddress(i);
        std::string digits;
        HUTConvert::dataToHexLittleEndian(&address, sizeof address, digits);
        lines.add(" dict set feature_map_info Cdma_Base_Address", std::to_string(i), " 0x",
                  HUTConvert::trimLeading(digits, '0'));
    }
}

void addSegment(const HTEQHardwareAddressSegment& segment, Lines& lines) {
    const std::string& tag = segment.getSpTag();
    const std::string name = tcl::namePart(tag) + "_" + std::to_string(segment.getIndex());
    const auto set = [&](const char* key, const std::string& value) { lines.add(" dict set ", name, key, value); };
    lines.add(" set ", name, " [dict create]");
    set(" index ", std::to_string(segment.getIndex()));
    set(" auto  ", word(segment.getAuto(), Form::bare));
    set(" sptag  ", tag.empty() ? " \"\"" : word(tag, Form::bare));
    set(" slr  ", word(segment.getSlr(), Form::bare));
    set(" max_masters  ", std::to_string(segment.getMaxMasters()));
    lines.add(" lappend memoryList $", name);
    lines.add(" dict set ", kMemoryTags, " ", word(tag, Form::quoted), " $", name);
}

/// The dictionary that describes the project.
void addConfiguration(const HPLPlatform& platform, const PropertyScriptNames& names, Lines& lines) {
    const HPLBoard& board = platform.getReadOnlyBoard();
    const std::string part = word(board.getPart(), Form::quoted);
    const std::string memoryLines = memories(platform);
    if (!memoryLines.empty()) lines.add(std::string_view(memoryLines).substr(0, memoryLines.size() - 1));
    lines.add(" set config_info [dict create]");
    lines.add(" dict set config_info project_name         ", word("project_unified_" + names.platform, Form::quoted));
    lines.add(" dict set config_info board_repo_paths     $board_repo_paths");
    lines.add(" dict set config_info board_part           ", part);
    lines.add(" dict set config_info board_name           ", word(board.getName(), Form::quoted));
    lines.add(" dict set config_info board_memories       $boardMemories ");
    lines.add(" dict set config_info project_part         ", part);
    lines.add(" dict set config_info bd_name              \"emu\" ");
    if (names.isDynamic) lines.add(" dict set config_info dr_bd_name           \"pfm_dynamic\" ");
    lines.add(" dict set config_info cfa_name             ", word(names.platform, Form::quoted));
    lines.add(" dict set config_info platform_unique_name ", word(names.uniqueName, Form::quoted));
    lines.add(" dict set config_info qlink_config          $qlinkConfig ");
    if (!memoryLines.empty()) lines.add(" dict set config_info memory_tags          $", kMemoryTags);
}

const Property* find(const Properties& properties, const char* key) {
    const auto found = properties.general.find(key);
    return found == properties.general.end() ? nullptr : &found->second;
}
bool isTrue(const Property* property) { return property && property->value == "true"; }

}  // namespace

std::string memories(const HPLPlatform& platform) {
    HSTVector<HTEQHardwareBusInterface*> interfaces;
    platform.getBusInterfaces(interfaces);
    Lines lines;
    bool isFound = false;
    for (const HTEQHardwareBusInterface* interface : interfaces) {
        if (interface->getSPTag() != "DDR") continue;
        if (!std::exchange(isFound, true)) lines.add(" set ", kMemoryTags, " [dict create]");
        HSTVector<HTEQHardwareAddressSegment*> segments;
        interface->getAddressSegments(segments);
        for (const HTEQHardwareAddressSegment* segment : segments) addSegment(*segment, lines);
    }
    return lines.take();
}

PropertyScript propertyScript(const HPLPlatform& platform, const Properties& properties,
                              const PropertyScriptNames& names) {
    Lines lines;
    lines.add("proc emu_prop_gen { } { ");
    lines.add("namespace eval config {");
    lines.add(" set qlinkConfig [dict create] ");
    lines.add(" set boardMemories {}");
    addBanks(properties, lines);
    addInstances(properties, lines);
    addClocks(properties, lines);
    lines.add(" set board_repo_paths {}");
    if (!names.boardRepository.empty())
        lines.add(" lappend board_repo_paths ", word(names.boardRepository, Form::quoted));
    addFeatureRom(platform, lines);
    addConfiguration(platform, names, lines);
    for (const auto& [key, value] : properties.general)
        if (!value.value.empty())
            lines.add(" dict set config_info ", keyWord(key, value, Form::bare), " ", word(value.text(), Form::bare));
    lines.add("} ");
    lines.add(" set ip_repo_paths {}");
    if (const Property* path = find(properties, "UserIpRepoPath"); path && !path->value.empty())
        lines.add(" lappend ip_repo_paths ", word(path->text(), Form::quoted));
    lines.add(" dict set config::config_info ip_repo_paths  $ip_repo_paths");

    PropertyScript script;
    if (isTrue(find(properties, "UseStreaming")))
        script.flow = Flow::streaming;
    else
        lines.add(" dict set config::config_info UseStreaming    false");
    lines.add("} ");
    if (isTrue(find(properties, "UseTeqMemss"))) script.flow = Flow::memorySubsystem;
    if (const Property* custom = find(properties, "CustomScriptPath")) {
        script.flow = Flow::customScript;
        script.customScript = custom->value;
    }
    script.text = lines.take();
    return script;
}

}  // namespace emulation
