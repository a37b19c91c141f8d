// What at most 1 MB of files may cost, whatever they hold: 2 s of the processor and 300 MiB for each verb.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "kit/CfaXml.h"
#include "kit/Hpfm.h"
#include "kit/Platforms.h"
#include "kit/Scratch.h"
#include "kit/Use.h"
#include "kit/ZipBuilder.h"

namespace {

using Entry = builder::Entry;
constexpr double kMiB = 1024.0 * 1024.0;

struct Input {
    const char* what;
    std::function<void(const Scratch&)> write;  ///< x.lfa, or x.zdf beside it
    const char* file = "x.lfa";
};

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

void archive(const Scratch& scratch, const std::string& metadata, std::vector<Entry> members = {},
             const char* name = "x.lfa") {
    members.insert(members.begin(), Entry("lfa.json", metadata, true));
    scratch.put(name, builder::archiveOf(members).build());
}

/// An archive with a list of `count` items, in which "#" is the number.
Input list(const char* what, const std::string& before, const std::string& item, int count,
           const std::string& after) {
    return {what, [=](const Scratch& scratch) { archive(scratch, before + listOf(item, count) + after); }};
}

/// The same as a file by itself, and as the member of an archive.
Input file(const char* what, const char* name, const std::string& before, const std::string& item, int count,
           const std::string& after, const char* between = ",") {
    return {what, [=](const Scratch& scratch) { scratch.put(name, before + listOf(item, count, between) + after); },
            name};
}
Input member(const char* what, const char* name, const char* member, const std::string& before,
             const std::string& item, int count, const std::string& after) {
    return {what,
            [=](const Scratch& scratch) {
                const char* between = before[0] == '<' ? "" : ",";
                scratch.put(
                    name,
                    builder::archiveOf({Entry(member, before + listOf(item, count, between) + after, true)}).build());
            },
            name};
}

/// A descriptor with these elements as its hardware.
std::string describing(const std::string& hardware) {
    return descriptor("<teq:hardwarePlatforms>" + hardware + "</teq:hardwarePlatforms>");
}

void platform(const Scratch& scratch, const std::string& hardware) {
    scratch.put("x.zdf", describing(hardware));
    scratch.put("sw.spfm", kSoftware);
}

/// So many partitions of x.lfa.
std::string partitions(int count) {
    return listOf("<teq:reconfigurablePartition teq:id='#'>" + fileElement("hardwarePlatform", "x.lfa") +
                      "</teq:reconfigurablePartition>",
                  count, "");
}

/// Texts of 16 bytes with one value of std::hash: each second half undoes what the first one did to the hash's state.
std::vector<std::string> textsOfOneHash(std::size_t count) {
    constexpr std::uint64_t kFactor = 0xc6a4a7935bd1e995, kStart = 0xc70f6907 ^ 16 * kFactor, kState = 1;
    std::uint64_t inverse = kFactor;
    for (int i = 0; i < 6; ++i) inverse *= 2 - kFactor * inverse;
    const auto folded = [](std::uint64_t value) { return value ^ value >> 47; };
    std::vector<std::string> texts;
    for (std::uint64_t i = 0; texts.size() < count; ++i) {
        std::string text(16, 'a');
        for (std::uint64_t at = 0, rest = i; rest > 0; rest /= 26) text[at++] += static_cast<char>(rest % 26);
        std::uint64_t half;
        std::memcpy(&half, text.data(), 8);
        half = (kStart ^ folded(half * kFactor) * kFactor) * kFactor ^ kState;
        half = folded(half * inverse) * inverse;
        std::memcpy(text.data() + 8, &half, 8);
        if (std::ranges::any_of(text, [](char c) { return c <= ' ' || c == '"' || c == '\\' || c == 127; })) continue;
        texts.push_back(text);
        EXPECT_EQ(std::hash<std::string>()(text), std::hash<std::string>()(texts[0]));
    }
    return texts;
}

/// XML metadata up to its first file, and the rest.
const std::string kCfa = kCfaXml.substr(0, kCfaXml.find("<File ")), kAfterFiles = kCfaXml.substr(kCfa.size());
const std::string kPBlocks = R"({"devices": [{"name": "fpga0", "core": {"availableResources": {"pBlocks": [)";
const std::string kResources = R"("resources": [{"name": "LUT", "value": "1"}])";

const std::vector<Input>& inputs() {
    static const std::vector<Input> all{
        {"partitions of one archive",
         [](const Scratch& scratch) {
             platform(scratch, partitions(1024));
             archive(scratch, R"({"busInterfaces": [)" + listOf(R"({"name": "b#", "mode": "Master"})", 3000) + "]}");
         },
         "x.zdf"},
        {"partitions with long names",
         [](const Scratch& scratch) {
             platform(scratch, partitions(1024));
             archive(scratch, R"({"name": ")" + std::string(60'000, 'n') + "\"}");
         },
         "x.zdf"},
        list("empty feature ROMs", R"({"featureRoms": [)", "{}", 300'000, "]}"),
        list("empty interfaces", R"({"busInterfaces": [)", "{}", 300'000, "]}"),
        list("empty segments", R"({"busInterfaces": [{"name": "b", "addressSegments": [)", "{}", 300'000, "]}]}"),
        list("empty devices", R"({"devices": [)", R"({"core": {}})", 200'000, "]}"),
        list("empty memories", R"({"memories": [)", "{}", 300'000, "]}"),
        list("empty clocks", R"({"systemClocks": [)", "{}", 300'000, "]}"),
        list("empty files", R"({"files": [)", "{}", 300'000, "]}"),
        list("empty partitions", R"({"tilPartitions": [)", "{}", 300'000, "]}"),
        list("unknown values", R"({"unknown": [)", "1", 900'000, "]}"),
        list("long unknown keys", "{", R"("a key that is longer than a short text #": "and so is its value")",
             360'000, "}"),
        {"emulation files",
         [](const Scratch& scratch) {
             const std::string member =
                 R"({"emulations": [)" +
                 listOf(R"({"name": "e#", "files": [{"type": "EMU_HPFM", "name": "f"}]})", 3000) + "]}";
             std::vector<Entry> members;
             for (int i = 0; i < 100; ++i) members.emplace_back(std::to_string(i) + ".json", member, true);
             archive(scratch, R"({"files": [)" + listOf(R"({"type": "EMU_JSON", "name": "#.json"})", 100) + "]}",
                     members);
         }},
        {"emulation files of blanks",
         [](const Scratch& scratch) {
             const std::string member = R"({"emulations": [], "x": ")" + std::string(30'000'000, ' ') + "\"}";
             std::vector<Entry> members;
             for (int i = 0; i < 20; ++i) members.emplace_back(std::to_string(i) + ".json", member, true);
             archive(scratch, R"({"files": [)" + listOf(R"({"type": "EMU_JSON", "name": "#.json"})", 20) + "]}",
                     members);
         }},
        list("lost keys below a long one",
             R"({"name": "x", ")" + std::string(100'000, 'k') + R"(": {")" + std::string(100'000, 'l') + "\": {",
             R"("k#": 1)", 50'000, "}}}"),
        list("a wide cell", R"({"memories": [{"name": ")" + std::string(500'000, 'w') + R"("}, )",
             R"({"name": "m#", "type": "t"})", 3000, "]}"),
        list("names of regions that differ in case", kPBlocks,
             R"({"name": "p#", "validSlrs": ["SLR#"], )" + kResources + "}", 30'000, "]}}}]}"),
        {"regions with many names",
         [](const Scratch& scratch) {
             std::string blocks;
             for (unsigned i = 0; i < 4096; ++i) {
                 std::string name = "pblock_dynamic";
                 for (unsigned bit = 0; bit < 12; ++bit)
                     if (i >> bit & 1) name[bit == 6 ? 12 : bit] -= 32;
                 blocks += (i ? "," : "") + (R"({"name": ")" + name + R"(", "validSlrs": [)") +
                           (i == 4095 ? listOf("\"s#\"", 4000) : "\"s\"") + "], " + kResources + "}";
             }
             archive(scratch, kPBlocks + blocks + "]}}}]}");
         }},
        {"resources of a region with many names",
         [](const Scratch& scratch) {
             archive(scratch, kPBlocks + R"({"name": "p", "validSlrs": [)" + listOf("\"s#\"", 20'000) +
                                  R"(], "resources": [)" + listOf(R"({"name": "r#", "value": "1"})", 20'000) +
                                  "]}]}}}]}");
         }},
        {"a path of dots",
         [](const Scratch& scratch) {
             platform(scratch, "<teq:hardwarePlatform teq:path='" + times(450'000, "./") + "' teq:name='x.lfa'/>");
             archive(scratch, "{}");
         },
         "x.zdf"},
        list("files that are missing", R"({"files": [)", R"({"type": "DCP#", "name": "dir#/f#"})", 30'000, "]}"),
        list("wrong values", R"({"systemClocks": [)", R"({"name": [], "id": "x", "frequency": {}})", 60'000, "]}"),
        list("dotted parameters", R"({"ipParameters": [)",
             R"({"name": "p#)" + times(62, ".a") + R"(", "value": "v"})", 30'000, "]}"),
        list(
            "banks", R"({"busInterfaces": [)",
            R"({"name": "b#", "mode": "Master", "memPort": "true", "spTag": "DDR", "addressSegments": [{"name": "s#", "spTag": "DDR[#]"}]})",
            30'000, "]}"),
        list("banks of memories", R"({"memories": [)", R"({"name": "m#", "type": "t#", "size": "4 GB"})", 60'000,
             "]}"),
        list("clocks", R"({"systemClocks": [)", R"({"name": "c#", "id": "#", "frequency": "100", "status": "fixed"})",
             60'000, "]}"),
        list("files of types", R"({"files": [)", R"({"type": "T#", "name": "lfa.json"})", 100'000, "]}"),
        list("nested partitions", R"({"tilPartitions": [)", R"({"tilInst": "t#", "partitions": [{"tilInst": "u"}]})",
             60'000, "]}"),
        list("items of one name", R"({"busInterfaces": [)", R"({"name": "b", "mode": "Master", "unknown#": "1"})",
             60'000, "]}"),
        list("design IPs", R"({"designIpInstances": [)",
             R"({"vlnv": "v#", "instance": "i", "configuration": {"a#": 1}})", 60'000, "]}"),
        {"hpfm",
         [](const Scratch& scratch) {
             archive(scratch, R"({"files": [{"type": "HPFM", "name": "x.hpfm"}]})",
                     {Entry("x.hpfm",
                            hpfm(listOf("<kp:busInterface kp:name='b#' kp:mode='master' kp:instanceRef='i#' "
                                        "kp:componentRef='hbm_memory_subsystem'><kp:addressSegment kp:auto='true' "
                                        "kp:name='s#'/></kp:busInterface>",
                                        50'000, "")),
                            true)});
         }},
        {"a member of blanks",
         [](const Scratch& scratch) {
             archive(scratch, "{}", {Entry("bomb", std::string(300'000'000, ' '), true)});
         }},
        {"one text",
         [](const Scratch& scratch) { archive(scratch, R"({"name": ")" + std::string(32'000'000, 'n') + "\"}"); }},
        {"a text of escapes",
         [](const Scratch& scratch) {
             archive(scratch, R"({"description": ")" + times(5'000'000, R"(\u0001)") + "\"}");
         }},
        {"extension metadata",
         [](const Scratch& scratch) {
             archive(scratch, R"({"files": [{"type": "META_JSON", "name": "e.json"}]})",
                     {Entry("e.json", "{" + listOf(R"("k#": {"a": "b"})", 200'000) + "}", true)});
         }},
        {"keys with one hash value",
         [](const Scratch& scratch) {
             const auto keys = textsOfOneHash(2100);
             std::string all;
             for (const std::string& key : keys) all += '"' + key + "\": 1, ";
             archive(
                 scratch, R"({"files": [{"type": "META_JSON", "name": "e.json"}]})",
                 {Entry("e.json", "{" + all + "\"list\": [" + listOf("{\"" + keys.back() + "\": 1}", 200'000) + "]}",
                        true)});
         }},
        {"directories",
         [](const Scratch& scratch) {
             std::vector<Entry> members;
             for (int i = 0; i < 10'000; ++i) members.emplace_back("d/" + std::to_string(i) + "/", "");
             archive(scratch, R"({"files": [{"type": "DCP", "name": "d"}]})", members);
         }},
        {"many descriptors",
         [](const Scratch& scratch) {
             for (int i = 0; i < 1000; ++i)
                 scratch.put(std::to_string(i) + "/x.zdf", describing(fileElement("hardwarePlatform", "none")));
             platform(scratch, fileElement("hardwarePlatform", "none"));
         },
         "x.zdf"},
        {"directories of a repository",
         [](const Scratch& scratch) {
             platform(scratch, fileElement("hardwarePlatform", "none"));
             for (int i = 0; i < 3000; ++i) std::filesystem::create_directory(scratch / std::to_string(i));
         },
         "x.zdf"},
        file("transform of many entries", "x.json", R"({"operation": "select", "spec": {)", R"("k#": "a.b[#].c")",
             40'000, "}}"),
        file("transform of empty lists", "x.json", R"({"spec": [)", "[]", 300'000, "]}"),
        file("a path of many segments", "x.json", R"({"spec": {"k": "a)", ".a", 400'000, R"("}})", ""),
        file("labels", "x.json", "{", R"("pcie_bar": {"bar_type": "x", "physical_function": #, "bar": 0})", 13'000,
             "}"),
        file("faulty labels", "x.json", "{", R"("cpu_endpoint": {})", 45'000, "}"),
        file(
            "networks", "x.json", "{",
            R"("debug_network": {"physical_function": #, "bar": 0, "bar_addr": 0, "system_addr": 0, "partition": "p",)"
            R"("partition_path": "/", "supports_corvex_debug": true, "supports_jtag_fallback": true})",
            5'000, "}"),
        file("emulations", "x.json", R"({"emulations": [)", "{}", 300'000, "]}"),
        file("emulations in XML", "x.xml", "<Root VersionMajor='1' VersionMinor='0'><Emulations>",
             "<Emulation Name=''/>", 45'000, "</Emulations></Root>", ""),
        file("emulations of no files", "x.xml", "<Root VersionMajor='1' VersionMinor='0'><Emulations>",
             "<Emulation Name='a#'><Files><File Type='T' Name='#'/></Files></Emulation>", 12'000,
             "</Emulations></Root>", ""),
        file("exceptions", "x.json", R"({"black_list": [)", "{}", 300'000, "]}"),
        file("connectors", "x.json", R"({"part": "p", "connectors": [)",
             R"({"name": "J#", "type": "x", "compatible": ["J#", "J0", "J1"]})", 14'000, "]}"),
        file("connectors that fit each other", "x.json", R"({"part": "p", "connectors": [)",
             R"({"name": "J", "compatible": ["J","J","J","J","J","J","J","J","J","J","J","J","J","J","J","J"]})",
             10'000, "]}"),
        member("definitions", "x.hdf", "sysdef.xml", "<Project top='t'>", "<File Type='BIT' Name='f#'/>", 100'000,
               "</Project>"),
        member("definitions of designs", "x.hdf", "sysdef.xml", "<Project top='t'>",
               "<File Type='HW_HANDOFF' Name='sysdef.xml' BD_TYPE='DEFAULT_BD'/>", 50'000, "</Project>"),
        member("an index of files", "x.rqa", "rqa.json", R"({"files": [)", R"({"type": "T#", "name": "f#"})", 100'000,
               "]}"),
        {"an index of directories",
         [](const Scratch& scratch) {
             std::vector<Entry> members{Entry("rqa.json", R"({"files": [{"type": "DR_BD", "name": "bd"}]})", true)};
             for (int i = 0; i < 5000; ++i) members.emplace_back("bd/" + std::to_string(i) + "/", "");
             scratch.put("x.rqa", builder::archiveOf(members).build());
         },
         "x.rqa"},
        member("files in XML", "x.cfa", "cfa.xml", kCfa, "<File Type='T#' Name='cfa.xml'/>", 60'000, kAfterFiles),
        member("emulation metadata in XML", "x.cfa", "cfa.xml", kCfa, "<File Type='EMU_XML' Name='cfa.xml'/>", 20'000,
               kAfterFiles),
        {"partitions of nothing",
         [](const Scratch& scratch) { platform(scratch, listOf("<teq:reconfigurablePartition/>", 15'000, "")); },
         "x.zdf"},
    };
    return all;
}

/// What is run on inputs of a kind; "@" is the input, "$" its directory.
struct Command {
    const char *kinds, *line;
};
constexpr Command kCommands[] = {
    {".lfa .zdf .cfa", "json @"},
    {".lfa .zdf .cfa", "show @"},
    {".lfa .zdf .cfa", "show --json @"},
    {".lfa .zdf .cfa .json .xml .rqa .hdf", "validate @"},
    {".lfa .zdf", "validate --json @"},
    {".lfa .zdf", "keys @"},
    {".lfa .zdf", "dict @"},
    {".zdf", "check --why @"},
    {".zdf", "info @"},
    {".zdf", "query @ name"},
    {".zdf", "list --no-defaults --repo $"},
    {".zdf", "list --no-defaults --repo $ --part x --latest --usable"},
    {".zdf", "where n --no-defaults --repo $"},
    {".zdf", "catalog --no-defaults --detailed --repo $"},
    {".zdf", "catalog --no-defaults --json --repo $"},
    {".lfa", "to-xml @"},
    {".lfa .cfa .rqa", "members @"},
    {".lfa .rqa", "verify @"},
    {".lfa", "set-file @ PRE_OPT_TCL tcl/a.tcl $/a.tcl"},
    {".lfa", "extract @ DCP $/out"},
    {".lfa .cfa", "check-rm @ @"},
    {".cfa", "emulate @ $/o.cfa --name n --tool " ZR_SOURCE_DIR "/examples/morwen"},
    {".hdf", "from-hdf @ $/o.lfa"},
    {".rqa", "rqa list @"},
    {".rqa", "rqa add @ X=x=$/a.tcl"},
    {".rqa", "rqa extract @ DR_BD $/out"},
    {".json", "labels @ --partition-metadata $/p --ext-metadata $/e"},
    {".json", "exceptions pack @ $/o"},
    {".json", "transform $/small.lfa @"},
    {".json", "emu-convert @ $/o.xml"},
    {".xml", "emu-convert @ $/o.json"},
    {".json", "boards --repo $"},
    {".json", "pack $/folder $/o.lfa"},
};

class Cost : public testing::TestWithParam<std::size_t> {
protected:
    std::vector<std::string> arguments(const Command& command, const std::string& file) const {
        std::vector<std::string> all;
        std::istringstream line(command.line);
        for (std::string each; line >> each; all.push_back(each)) {
            if (each == "@") each = file;
            if (const auto at = each.find('$'); at != std::string::npos) each.replace(at, 1, scratch_.str());
        }
        return all;
    }
    const Scratch scratch_;
};

}  // namespace

TEST_P(Cost, IsBounded) {
    const Input& input = inputs()[GetParam()];
    input.write(scratch_);
    std::uintmax_t size = 0;
    for (const auto& each : std::filesystem::recursive_directory_iterator(scratch_.str()))
        if (each.is_regular_file()) size += each.file_size();
    EXPECT_LE(size, 1'000'000U) << input.what;
    const std::string file = scratch_ / input.file, kind = std::filesystem::path(file).extension();
    scratch_.put("a.tcl", "puts a\n");
    archive(scratch_, R"({"name": "small"})", {}, "small.lfa");
    if (kind == ".json") {  // whatever reads such a file by its name
        std::filesystem::create_directories(scratch_ / "board");
        std::filesystem::create_directories(scratch_ / "folder");
        std::filesystem::copy(file, scratch_ / "board/board.json");
        std::filesystem::copy(file, scratch_ / "folder/lfa.json");
    }
    for (const Command& command : kCommands) {
        if ((std::string(command.kinds) + " ").find(kind + " ") == std::string::npos) continue;
        const Use used = useOf(arguments(command, file));
        SCOPED_TRACE(std::string(input.what) + ": " + command.line);
        std::printf("  %-40s %-12.12s exit %d, %.2f s, %4.0f MiB, %zu bytes: %.70s\n", input.what, command.line,
                    used.exit, used.seconds, used.peak / kMiB, used.printed, used.exit ? used.text.c_str() : "\n");
        EXPECT_LT(used.seconds, 2);
        EXPECT_LT(used.peak, 300 * kMiB);
        EXPECT_TRUE(used.exit == 0 || used.exit == 1 || used.exit == 3) << used.exit;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Cost, testing::Range<std::size_t>(0, inputs().size()));
