// Large inputs, each in a process of its own: time and memory that they take, and how both grow.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "kit/CfaXml.h"
#include "kit/Hpfm.h"
#include "kit/Platforms.h"
#include "kit/Scratch.h"
#include "kit/Use.h"
#include "kit/ZipBuilder.h"

namespace {

constexpr double kMiB = 1024.0 * 1024.0, kMaxSeconds = 10;

/// A file that grows with a number.
struct Input {
    const char* what;
    const char* name;
    int most;      ///< of the number
    double nodes;  ///< values, elements and attributes of the text for each, or of its document when that has more
    std::function<std::string(int)> text;
    std::string member = "lfa.json";  ///< of an archive of that name, which the text is; empty: the text is the file
    int exit = 0;
    std::string verb = "json";
};

const char kItem[] = R"({"name": "n#", "type": "t", "id": "#", "instRef": "i", "clockRef": "n#"})";

/// An archive's member in which `item` stands so many times.
Input itemInput(const char* what, int most, double nodes, const std::string& before, const std::string& item,
                const std::string& after, const char* member = "lfa.json", const char* between = ",") {
    const auto text = [=](int count) { return before + listOf(item, count, between) + after; };
    return {what, "x.lfa", most, nodes, text, member};
}

Input listInput(const char* key, int most, double nodes, const std::string& item) {
    return itemInput(key, most, nodes, std::string("{\"") + key + "\": [", item, "]}");
}

/// Metadata that lists a member whose name is its type.
std::string listOfAll(const std::string& type) {
    return R"({"files": [{"type": ")" + type + R"(", "name": ")" + type + "\"}]}";
}

/// XML metadata in which `item` stands so many times in front of `part`.
Input xmlInput(const char* what, int most, double nodes, const std::string& part, const std::string& item) {
    const std::string xml = kCfaXml;
    const auto at = xml.find(part);
    return itemInput(what, most, nodes, xml.substr(0, at), item, xml.substr(at), "lfa.xml", "");
}

const std::vector<Input>& inputs() {
    static const std::vector<Input> all{
        listInput("unknown", 490'000, 1, "1"),
        itemInput("keys", 490'000, 1, "{", "\"key#\": 1", "}"),
        itemInput("keys of a configuration", 200'000, 1, R"({"designIpInstances": [{"vlnv": "v", "configuration": {)",
                  "\"key#\": 1", "}}]}"),
        {"one text", "x.lfa", 32, 0,
         [](int n) { return R"({"name": ")" + std::string(static_cast<std::size_t>(n) * 1'000'000, 'n') + "\"}"; }},
        {"blanks", "x.lfa", 33, 0,
         [](int n) { return "{" + std::string(static_cast<std::size_t>(n) * 1'000'000, ' ') + "}"; }},
        listInput("devices", 50'000, 5, R"({"name": "fpga#", "core": {"name": "c#", "instPath": "p#"}})"),
        listInput("memories", 50'000, 8,
                  R"({"name": "m#", "type": "ddr#", "size": "4 GB", "configParams": [{"name": "a", "value": "b"}]})"),
        listInput("interfaces", 50'000, 6, kItem),
        listInput("files", 50'000, 3, R"({"name": "f#", "type": "DCP#"})"),
        listInput("systemClocks", 50'000, 6, kItem),
        listInput(
            "busInterfaces", 25'000, 10,
            R"({"name": "b#", "mode": "Master", "spTag": "t#", "clockRef": "n#", "busTypeRef": "x", "addressSegments": [{"name": "s#", "spTag": "DDR[#]"}]})"),
        {"banks", "x.lfa", 100'000, 4,
         [](int n) {
             return R"({"busInterfaces": [{"memPort": "MEMSS", "spTag": "HBM", "addressSegments": [)" +
                    listOf(R"({"slr": "SLR0", "auto": "true"})", n, ",") + "]}]}";
         },
         "lfa.json", 0, "show"},
        listInput("nocConnectivity", 50'000, 5, R"({"instRef": "i#", "busInterfaces": [{"name": "b#"}]})"),
        listInput("designIpInstances", 50'000, 5, R"({"vlnv": "v#", "instance": "i", "configuration": {"a#": 1}})"),
        listInput("reconfigPartitionIDs", 50'000, 3, R"({"designID": "#", "nodeID": "#"})"),
        listInput("tilPartitions", 50'000, 3, R"({"tilInst": "t#", "numColumns": "#"})"),
        listInput("featureRoms", 15'000, 24,
                  R"({"majorVersion": "#", "vbnvName": "v#", "featureBitMap": [{"value": "1"}]})"),
        listInput("ipParameters", 50'000, 3, R"({"name": "n#", "value": "v#"})"),
        listInput("resources", 50'000, 3, R"({"type": "LUT", "count": "#"})"),
        listInput("zuncCompileXPSwitches", 200'000, 1, "\"s#\""),
        itemInput("pBlocks", 50'000, 8,
                  R"({"devices": [{"name": "fpga0", "core": {"availableResources": {"pBlocks": [)",
                  R"({"name": "p#", "validSlrs": ["s#"], "resources": [{"name": "r#", "value": "1"}]})", "]}}}]}"),
        xmlInput("memories of XML", 50'000, 6, R"(<Memory Name="mn" )",
                 R"(<Memory Name="m#" Type="ddr4" Size="4GB"><Config><Param Name="a" Value="b"/></Config></Memory>)"
                 "\n"),
        xmlInput("ports of XML", 30'000, 8, R"(<Port Name="q" )",
                 R"(<Port Name="p#" Type="addressable"><AddressSegments><AddressSegment Name="s#" Base="b" )"
                 R"(Range="r" Slave="s"/></AddressSegments></Port>)"),
        xmlInput("files of XML", 50'000, 3, "<File ", R"(<File Type="T#" Name="f#"/>)"),
        xmlInput("parameters of XML", 100'000, 3, R"(<Parameter Name="k1" )", R"(<Parameter Name="x#" Value="v"/>)"),
        {"hpfm", "x.lfa", 20'000, 10,
         [](int n) {
             return hpfm(
                 listOf("<kp:busInterface kp:name='b#' kp:mode='master' kp:instanceRef='i#' "
                        "kp:componentRef='hbm_memory_subsystem'><kp:addressSegment kp:auto='true' "
                        "kp:name='s#'/></kp:busInterface>",
                        n, ""));
         },
         "HPFM"},
        itemInput("emulation XML", 50'000, 6, "<Root VersionMajor='1' VersionMinor='1'><Emulations>",
                  "<Emulation Name='e#'><Files><File Type='EMU_HPFM' Name='f#'/></Files></Emulation>",
                  "</Emulations></Root>", "EMU_XML", ""),
        itemInput("emulation JSON", 50'000, 7, R"({"emulations": [)",
                  R"({"name": "e#", "files": [{"type": "EMU_HPFM", "name": "f#"}]})", "]}", "EMU_JSON"),
        itemInput("extension metadata", 200'000, 2, "{", R"("key#": {"a": "b"})", "}", "EXT_META_JSON"),
        {"software", "x.spfm", 30'000, 4,
         [](int n) {
             return with(kSoftware, "</teq:systemConfigurations>",
                         listOf("<teq:configuration teq:name='c#' teq:displayName='C'><teq:description/>"
                                "</teq:configuration>",
                                n, "") +
                             "</teq:systemConfigurations>");
         },
         ""},
        {"an open tag", "x.zdf", 30, 0,
         [](int n) { return "<" + std::string(static_cast<std::size_t>(n) * 1'000'000, 'a'); }, "", 3},
        {"open elements", "x.zdf", 30, 0, [](int n) { return listOf("<a>", n * 300'000, ""); }, "", 3},
        {"members", "x.lfa", 999'999, 0,
         [](int n) {
             builder::Zip zip = builder::archiveOf({builder::Entry("lfa.json", "{}")});
             zip.isZip64 = true;
             for (int i = 0; i < n; ++i) zip.entries.emplace_back(std::to_string(i) + "/a/name/of/usual/length.dcp");
             return zip.build();
         },
         ""},
    };
    return all;
}

class Growth : public testing::TestWithParam<std::size_t> {
protected:
    /// Writes the file for `number`; gives the size of the text in bytes.
    std::size_t write(const Input& input, int number) const {
        const std::string text = input.text(number);
        std::string bytes;
        if (!input.member.empty()) {
            builder::Zip zip = builder::archiveOf({builder::Entry(input.member, text, true)});
            if (!input.member.starts_with("lfa.")) zip.entries.emplace_back("lfa.json", listOfAll(input.member));
            bytes = zip.build();
        }
        scratch_.put(input.name, input.member.empty() ? text : bytes);
        return text.size();
    }
    Scratch scratch_;
};

}  // namespace

TEST_P(Growth, IsLinear) {
    const Input& input = inputs()[GetParam()];
    SCOPED_TRACE(input.what);
    double before = 0;
    for (const int part : {4, 1}) {
        const int number = input.most / part;
        const auto size = static_cast<double>(write(input, number));
        Use used = useOf({input.verb, scratch_ / input.name});
        // n log n for four times as much is below 5; a small time proves nothing, and a large one may be the
        // machine's.
        const auto grows = [&] { return part == 1 && used.seconds > 0.2 && used.seconds > 6.5 * before; };
        for (int again = 0; again < 3 && grows(); ++again)
            used.seconds = std::min(used.seconds, useOf({input.verb, scratch_ / input.name}).seconds);
        EXPECT_FALSE(grows()) << used.seconds << " s after " << before;
        EXPECT_EQ(used.exit, input.exit);
        EXPECT_LT(used.seconds, kMaxSeconds);
        EXPECT_LT(used.peak, 12 * size + 700 * input.nodes * number + 64 * kMiB) << size;
        std::printf("  %-24s %8d: %10.0f bytes, %.2f s, %.0f MiB\n", input.what, number, size, used.seconds,
                    used.peak / kMiB);
        before = used.seconds;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Growth, testing::Range<std::size_t>(0, inputs().size()));

/// Neither the platforms nor their reports are kept: a thousand take no more memory than a hundred.
TEST(Growth, CatalogStreams) {
    const Scratch scratch;
    const std::string item = R"({"name": "m#", "type": "ddr4", "size": "4 GB"})";
    const std::string archive =
        builder::archiveOf({builder::Entry("lfa.json", R"({"memories": [)" + listOf(item, 1000) + "]}", true)})
            .build();
    scratch.put("sw.spfm", kSoftware);
    double before = 0;
    for (const int most : {100, 1000}) {
        for (int i = 0; i < most; ++i) {
            const std::string name = "x" + std::to_string(i);
            scratch.put("all/" + name + "/" + name + ".lfa", archive);
            scratch.put("all/" + name + "/" + name + ".zdf",
                        descriptor("<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", name + ".lfa") +
                                       "</teq:hardwarePlatforms>",
                                   "../../sw.spfm"));
        }
        const Use used = useOf({"catalog", "--repo=" + (scratch / "all"), "--no-defaults", "--ndjson", "--detailed"});
        EXPECT_EQ(used.exit, 0);
        EXPECT_EQ(std::count(used.text.begin(), used.text.end(), '\n'), most);
        if (before > 0) {
            EXPECT_LT(used.peak, before + 4 * kMiB);
        }
        before = used.peak;
    }
}

/// A thousandfold at each of two levels: refused unless it is small, whatever is promised.
TEST(Bombs, TwoLevels) {
    const Scratch scratch;
    for (const bool isLarge : {false, true}) {
        const std::size_t size = isLarge ? 500'000'000 : 100'000'000;
        const builder::Entry bomb("bomb", std::string(size, '\0'), true);
        // The nested archive is stored in the first case and packed again in the second.
        const builder::Entry nested("x.tilprj", builder::archiveOf({bomb}).build(), isLarge),
            metadata("lfa.json", R"({"files": [{"type": "TILPRJ", "name": "x.tilprj"}]})");
        scratch.put("x.lfa", builder::archiveOf({metadata, nested}).build());
        const Use used = useOf({"extract", scratch / "x.lfa", "TILPRJ!bomb", scratch / "out"});
        EXPECT_LT(used.seconds, kMaxSeconds) << size;
        EXPECT_LT(used.peak, 64 * kMiB) << size;
        EXPECT_EQ(used.exit, isLarge ? 3 : 0) << size;
        EXPECT_EQ(std::filesystem::exists(scratch / "out"), !isLarge);
        std::filesystem::remove(scratch / "out");
    }
}

/// More than an archive of its size may hold, although it says so itself and is sound.
TEST(Bombs, MoreThanOneCallUnpacks) {
    const Scratch scratch;
    const builder::Entry bomb("bomb", std::string((1UL << 30) + 1, '\0'), true);
    scratch.put("x.lfa", builder::archiveOf({builder::Entry("lfa.json", "{}"), bomb}).build());
    const Use used = useOf({"extract", scratch / "x.lfa", "bomb", scratch / "out"});
    EXPECT_EQ(used.exit, 3);
    EXPECT_LT(used.seconds, kMaxSeconds);
    EXPECT_LT(used.peak, 64 * kMiB);
    EXPECT_EQ(scratch.names(), std::vector<std::string>{"x.lfa"});
}
