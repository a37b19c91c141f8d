// What a file of at most 1 MB may cost, whatever it holds: 2 s of the processor and 300 MiB for each verb.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

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

void platform(const Scratch& scratch, const std::string& hardware) {
    scratch.put("x.zdf", descriptor(hardware));
    scratch.put("sw.spfm", kSoftware);
}

const std::string kPBlocks = R"({"devices": [{"name": "fpga0", "core": {"availableResources": {"pBlocks": [)";
const std::string kResources = R"("resources": [{"name": "LUT", "value": "1"}])";

const std::vector<Input>& inputs() {
    static const std::vector<Input> all{
        {"partitions of one archive",
         [](const Scratch& scratch) {
             platform(scratch,
                      "<teq:reconfigurablePartitions>" +
                          listOf("<teq:reconfigurablePartition teq:id='p#'>" +
                                     fileElement("hardwarePlatform", "x.lfa") + "</teq:reconfigurablePartition>",
                                 1024, "") +
                          "</teq:reconfigurablePartitions>");
             archive(scratch, R"({"busInterfaces": [)" + listOf(R"({"name": "b#", "mode": "Master"})", 3000) + "]}");
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
             platform(scratch, "<teq:hardwarePlatforms><teq:hardwarePlatform teq:path='" + times(450'000, "./") +
                                   "' teq:name='x.lfa'/></teq:hardwarePlatforms>");
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
        {"directories",
         [](const Scratch& scratch) {
             std::vector<Entry> members;
             for (int i = 0; i < 10'000; ++i) members.emplace_back("d/" + std::to_string(i) + "/", "");
             archive(scratch, R"({"files": [{"type": "DCP", "name": "d"}]})", members);
         }},
    };
    return all;
}

struct Verb {
    std::vector<std::string> arguments;  ///< without the file
    std::vector<std::string> after = {};
};

class Cost : public testing::TestWithParam<std::size_t> {};

}  // namespace

TEST_P(Cost, IsBounded) {
    const Input& input = inputs()[GetParam()];
    const Scratch scratch;
    input.write(scratch);
    std::uintmax_t size = 0;
    for (const std::string& name : scratch.names()) size += std::filesystem::file_size(scratch / name);
    EXPECT_LE(size, 1'000'000U) << input.what;
    scratch.put("a.tcl", "puts a\n");
    const std::string file = scratch / input.file;
    std::vector<Verb> verbs{{{"json"}}, {{"show"}}, {{"validate"}}, {{"validate", "--json"}}, {{"keys"}}, {{"dict"}}};
    if (input.file == std::string("x.zdf"))
        verbs.insert(verbs.end(), {{{"check"}}, {{"info"}}, {{"query"}, {"name"}}});
    if (input.file == std::string("x.lfa")) {
        verbs.push_back({{"to-xml"}});
        verbs.push_back({{"members"}});
        verbs.push_back({{"set-file"}, {"PRE_OPT_TCL", "tcl/a.tcl", scratch / "a.tcl"}});
        verbs.push_back({{"extract"}, {"DCP", scratch / "out"}});
    }
    for (const Verb& verb : verbs) {
        std::vector<std::string> arguments = verb.arguments;
        arguments.push_back(file);
        arguments.insert(arguments.end(), verb.after.begin(), verb.after.end());
        const Use used = useOf(arguments);
        SCOPED_TRACE(std::string(input.what) + ": " + arguments[0]);
        std::printf("  %-40s %-9s exit %d, %.2f s, %4.0f MiB, %zu bytes: %.70s\n", input.what, arguments[0].c_str(),
                    used.exit, used.seconds, used.peak / kMiB, used.printed, used.exit ? used.text.c_str() : "\n");
        EXPECT_LT(used.seconds, 2);
        EXPECT_LT(used.peak, 300 * kMiB);
        EXPECT_TRUE(used.exit == 0 || used.exit == 1 || used.exit == 3) << used.exit;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Cost, testing::Range<std::size_t>(0, inputs().size()));
