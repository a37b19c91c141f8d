#include "platform/PlatformCheck.h"

#include <gmock/gmock.h>

#include "kit/CfaXml.h"
#include "kit/Platforms.h"
#include "kit/Scratch.h"
#include "records/Documents.h"

using teq_platform::CheckFinding;
using teq_platform::PlatformCheck;

namespace {

/// "member:line:column: element [name]" of each finding in the file.
std::vector<std::string> found(const std::string& file) {
    std::vector<std::string> lines;
    for (const CheckFinding& f : PlatformCheck::check(file)) {
        EXPECT_NE(f.text, "");
        lines.push_back(f.member + ":" + std::to_string(f.line) + ":" + std::to_string(f.column) + ": " + f.element +
                        " [" + f.name + "]");
    }
    return lines;
}

using Lines = std::vector<std::string>;

/// What is found in an archive of these members.
Lines foundIn(const std::map<std::string, std::string>& members, const std::string& name = "x.lfa") {
    const Scratch scratch;
    return found(packed(scratch, name, members));
}

}  // namespace

TEST(PlatformCheck, FindsEveryFaultOfADocument) {
    const Scratch scratch;
    const std::string file = scratch.put("a.spfm",
                                         "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='v'\n"
                                         " teq:library='l' teq:name='n' teq:version='one' teq:more=''>\n"
                                         " <teq:description>d</teq:description><teq:other/>\n"
                                         " <teq:systemConfigurations/>\n"
                                         "</teq:platform>\n");
    EXPECT_EQ(found(file),
              Lines({":1:1: platform [bad-value]", ":1:1: platform [unknown-attribute]",
                     ":3:38: other [unknown-element]", ":4:29: systemConfigurations [missing-element]"}));
}

TEST(PlatformCheck, ReportsTheLocationsOfJsonValues) {
    EXPECT_EQ(
        foundIn({{"lfa.json",
                  "{\n"
                  "  \"vendor\": [\"v\"], \"board\": \"u\xC3\xA4\", \"usesPR\": \"yes\",\n"
                  "  \"devices\": [\n"
                  "    {\"name\": \"a\", \"core\": {\"numComputeUnits\": \"4x\"}},\n"
                  "    {\"name\": \"b\", \"fpgaPart\": \"a:b\"}, 5],\n"
                  "  \"memories\": {\"name\": \"m\"},\n"
                  "  \"tilHardware\": {\"arch\": \"TIL9\"},\n"
                  "  \"designIpInstances\": [{\"configuration\": {\"a\": 1, \"a\": 2}}],\n"
                  "  \"designIntent\": {\"embedded\": {\"value\": \"perhaps\"}},\n"
                  "  \"featureRoms\": [{\"uuid\": \"1-2\"}], \"unknown\": [[{}]]\n"
                  "}\n"}}),
        Lines({"lfa.json:2:13: vendor [wrong-shape]", "lfa.json:2:29: board [wrong-shape]",
               "lfa.json:2:45: usesPR [not-a-flag]", "lfa.json:4:47: devices[0].core.numComputeUnits [not-a-number]",
               "lfa.json:5:5: devices[1] [missing-key]", "lfa.json:5:31: devices[1].fpgaPart [refused-value]",
               "lfa.json:5:39: devices[2] [wrong-shape]", "lfa.json:6:15: memories [wrong-shape]",
               "lfa.json:7:27: tilHardware.arch [refused-value]",
               "lfa.json:8:43: designIpInstances[0].configuration [refused-value]",
               "lfa.json:9:42: designIntent.embedded.value [not-a-flag]",
               "lfa.json:10:28: featureRoms[0].uuid [refused-value]", "lfa.json:10:48: unknown [unknown-key]"}));
}

TEST(PlatformCheck, ReportsMissingAndDuplicateKeys) {
    EXPECT_EQ(foundIn({{"lfa.json",
                        "{\"devices\": [{}], \"featureRoms\": [{}],\n\"tilHardware\": {\"npiBaseAddress\": 1}}"}}),
              Lines({"lfa.json:1:14: devices[0] [missing-key]", "lfa.json:2:16: tilHardware [missing-key]"}));
    EXPECT_EQ(foundIn({{"lfa.json", R"({"memories": [{"size": "1GB"},
        {"name": "b", "size": "1GB", "name": "c"}]})"}}),
              Lines({"lfa.json:2:46: memories[1].name [duplicate-key]"}));
}

TEST(PlatformCheck, AcceptsWhatReadersAccept) {
    EXPECT_EQ(foundIn({{"lfa.json", "{\"name\": 1}"}}), Lines());
    EXPECT_EQ(foundIn({{"lfa.json", R"({"vendor": 1, "versionMajor": " 5", "usesPR": "TRUE", "devices": null,
        "board": {}, "memories": "", "zuncLinkXPSwitches": ["a", 1, true], "uniqueName": {"a": [1]},
        "systemClocks": [{"id": -1}, {"id": "-1"}, {"id": 0, "default": true}]})"}}),
              Lines());
}

TEST(PlatformCheck, ChecksTheMembersThatReadersOpen) {
    const std::string files = R"({"files": [
        {"type": "HPFM", "name": "a.hpfm"}, {"type": "EMU_XML", "name": "./e.xml"},
        {"type": "EMU_JSON", "name": "e.json"}, {"type": "EXT_META_JSON", "name": "x.json"},
        {"type": "IP_REPO_PATH", "name": "ip"}, {"type": "DCP", "name": "gone.dcp"},
        {"type": "EMU_JSON", "name": "gone.json"}, {"type": "EMU_XML", "nmae": "e.xml"}]})";
    EXPECT_EQ(foundIn({{"lfa.json", files},
                       {"a.hpfm", "<a/>"},
                       {"e.xml", "<Root VersionMajor='1' VersionMinor='x'><Emulations/></Root>"},
                       {"e.json", R"({"emulations": [{"files": [{"type": "a"}]}, {}]})"},
                       {"x.json", "{"},
                       {"ip/a.v", "module"}}),
              Lines({"lfa.json:4:49: files[5] [missing-member]", "lfa.json:5:9: files[6] [missing-emulation-member]",
                     "lfa.json:5:52: files[7] [missing-emulation-member]",
                     "lfa.json:5:80: files[7].nmae [unknown-key]", "a.hpfm:1:1: a [wrong-root]",
                     "e.xml:1:1: Root [bad-value]", "e.json:1:28: emulations[0].files[0] [missing-key]",
                     "e.json:1:45: emulations[1] [missing-key]", "x.json:1:2:  [not-json]"}));
}

TEST(PlatformCheck, IgnoresKeysThatTheHpfmReplaces) {
    const std::string metadata = R"({"files": [{"type": "HPFM", "name": "a.hpfm"}], "busInterfaces": "none"})";
    EXPECT_EQ(foundIn({{"lfa.json", metadata}, {"a.hpfm", documents::kHpfm}}),
              Lines({"a.hpfm:8:7: systemClocks [different-clock]", "a.hpfm:14:5: busInterface [unknown-reference]"}));
    EXPECT_EQ(foundIn({{"lfa.json", metadata}, {"a.hpfm", "<a/>"}}),
              Lines({"lfa.json:1:66: busInterfaces [wrong-shape]", "a.hpfm:1:1: a [wrong-root]"}));
}

TEST(PlatformCheck, ChecksEachMetadataMember) {
    const std::string bad = R"({"board": 1})", name = ":1:11: board [wrong-shape]";
    EXPECT_EQ(
        foundIn({{"lfa.json", bad}, {"alt_lfa.json", bad}, {"hw_emu/lfa.json", bad}, {"hw_emu/alt_lfa.json", bad}}),
        Lines({"alt_lfa.json" + name, "lfa.json" + name, "hw_emu/alt_lfa.json" + name, "hw_emu/lfa.json" + name}));
    EXPECT_EQ(
        foundIn({{"lfa.json", "{\"name\": \"n\"}"},
                 {"hw_emu/lfa.json", R"({"files": [{"type": "DCP", "name": "a"}, {"type": "DCP", "name": "b"}]})"},
                 {"hw_emu/a", ""},
                 {"b", ""}}),
        Lines({"hw_emu/lfa.json:1:42: files[1] [missing-member]"}));
}

TEST(PlatformCheck, ChecksOlderMetadata) {
    const std::string metadata = R"(<Root VersionMajor="3" VersionMinor="0">
  <CFA Vendor="v" BoardId="b" Name="n" VersionMajor="1" VersionMinor="0" Description="d">
    <Build/>
    <DesignIPs><IP InstanceName="i" VLNV="v"><Configuration>
      <Parameter Name="a" Value=""/>
      <Parameter Name="a" Value=""/></Configuration></IP></DesignIPs>
    <Board Name="b" Vendor="v" Part="p">
      <Memories><Memory Name="m" Type="ddr4" Size="16GB"/>
                <Memory Name="n" Type="ddr4" Size="16"/></Memories><Images/></Board>
    <Devices><Device Name="fpga0" Type="fpga" FpgaDevice="a">
      <Core Name="c" Type="t" ComputeUnits="1"/></Device></Devices>
    <Files>
      <File Type="hpfm" Name="gone.hpfm"/><File Type="DCP" Name="here"/>
      <File Type="EMU_XML" Name="gone.xml"/></Files>
    <FeatureRom MajorVersion="1" MinorVersion="0" MorwenBuildID="0" IPBuildID="0" TimeSinceEpoch="0" FPGAPartName=""
       VBNVName="" DDRChannelCount="0" DDRChannelSize="0" DRBaseAddress="0" FeatureBitMap="0" UUID="x"/>
  </CFA>
</Root>)";
    EXPECT_EQ(foundIn({{"cfa.xml", metadata}, {"here", ""}}, "x.cfa"),
              Lines({"cfa.xml:1:1: Root [newer-schema]", "cfa.xml:6:7: Parameter [refused-value]",
                     "cfa.xml:9:17: Memory [uncounted-memory]", "cfa.xml:10:14: Device [refused-value]",
                     "cfa.xml:13:7: File [missing-member]", "cfa.xml:14:7: File [missing-emulation-member]",
                     "cfa.xml:15:5: FeatureRom [refused-value]"}));
}

TEST(PlatformCheck, ReportsWhatLoadsButCannotBeWritten) {
    const std::string before = R"({"designIpInstances": [{}, {"configuration": )";
    EXPECT_EQ(foundIn({{"lfa.json", before + R"({"a.b.c": 1, "a": 2, "ab": 3, "d": "", "d.e": 4, ".f": 5}}]})"}}),
              Lines({"lfa.json:1:56: designIpInstances[1].configuration [clashing-parameter]"}));
    std::string deep;
    for (int i = 0; i < 64; ++i) deep += "a.";
    const std::string parameters =
        "<Parameter Name='a.b.c' Value=''/>\n<Parameter Name='a' Value='2'/>\n<Parameter Name='" + deep +
        "' Value=''/>";
    EXPECT_EQ(foundIn({{"cfa.xml", with(kCfaXml, R"(<Parameter Name="k1" Value="kv"/>)", parameters)}, {"f1", ""}},
                      "x.cfa"),
              Lines({"cfa.xml:17:11: Parameter [clashing-parameter]", "cfa.xml:19:1: Parameter [refused-value]",
                     "cfa.xml:47:11: SystemClock [bad-frequency]"}));
}

TEST(PlatformCheck, FollowsADescriptorToItsFiles) {
    const Scratch scratch;
    packed(scratch, "hw/a.lfa", {{"lfa.json", "{\"board\": 1}"}});
    scratch.put("sw/a.spfm", "<a/>");
    const std::string file = scratch.put(
        "p/a.zdf", R"(<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l"
 teq:name="n" teq:version="1.0"><teq:description/>
 <teq:hardwarePlatforms teq:defaultRP="3">
  <teq:reconfigurablePartition teq:id="1"><teq:hardwarePlatform teq:path="../hw" teq:name="a.lfa"/>
   <teq:hwEmuPlatform teq:path="../hw" teq:name="a.lfa"/></teq:reconfigurablePartition>
  <teq:reconfigurablePartition teq:id="2"><teq:hwEmuPlatform teq:path="../hw" teq:name="gone.lfa"/>
  </teq:reconfigurablePartition></teq:hardwarePlatforms>
 <teq:softwarePlatforms><teq:softwarePlatform teq:path="../sw" teq:name="a.spfm"/></teq:softwarePlatforms>
</teq:platform>)");
    EXPECT_EQ(found(file),
              Lines({":3:2: hardwarePlatforms [unknown-default-partition]",
                     ":6:3: reconfigurablePartition [missing-element]", ":6:43: hwEmuPlatform [missing-file]",
                     "lfa.json:1:11: board [wrong-shape]", ":1:1: a [wrong-root]"}));
    const auto findings = PlatformCheck::check(file);
    ASSERT_EQ(findings.size(), 5U);
    EXPECT_EQ(findings[0].file, file);
    EXPECT_EQ(findings[3].file, scratch / "hw/a.lfa");
    EXPECT_EQ(findings[3].severity, CheckFinding::Severity::error);
    EXPECT_EQ(findings[0].severity, CheckFinding::Severity::warning);
}

TEST(PlatformCheck, RecognisesAFileByNameAndContent) {
    const struct {
        const char* name;
        std::string text, expected;
    } cases[] = {
        {"a", documents::kDescriptor, "missing-file"},
        {"a.xml", documents::kSoftware, ""},
        {"a.xml", documents::kEmulation, ""},
        {"a.xml", documents::kHpfm, "unknown-reference"},
        {"b.xml", "<Root VersionMajor='1' VersionMinor='0'><Emulations><Emulation/></Emulations></Root>",
         "missing-attribute"},
        {"b.xml", "<Root VersionMajor='1' VersionMinor='0'><CFA/></Root>", "missing-attribute"},
        {"b.xml", "<Root VersionMajor='1' VersionMinor='x'/>", "bad-value"},
        {"cfa.xml", documents::kEmulation, "unknown-element"},
        {"hw_emu.json", "{}", "missing-key"},
        {"a.json", "{\"emulations\": [{}]}", "missing-key"},
        {"a.json", "{\"featureRoms\": [{}]}", "missing-key"},
        {"a.json", "{\"featureRoms\": [{}], \"vendor\": []}", ""},
        {"rqa.json", "{\"file\": []}", "unknown-key"},
        {"board.json", "{\"part\": \"p\", \"name\": \"n\", \"connectors\": []}", ""},
        {"p.json", "{\"partition_metadata\": {\"b\": 1, \"b\": 2}}", "duplicate-key"},
        {"a", " [1]", "wrong-shape"},
        {"a.json", "", "not-json"},
        {"a.xml", "", "not-well-formed"},
        {"a.zdf", "{\"featureRoms\": [{}]}", "not-well-formed"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.name) + ": " + c.text.substr(0, 80));
        const Scratch scratch;
        const auto findings = PlatformCheck::check(scratch.put(c.name, c.text));
        EXPECT_EQ(findings.empty() ? "" : findings.front().name, c.expected);
    }
}

TEST(PlatformCheck, NamesWhatCannotBeOpened) {
    const Scratch scratch;
    for (const std::string& file : {scratch / "gone.zdf", scratch / "gone.lfa", scratch.str(),
                                    scratch.put("text.lfa", "text"), std::string()}) {
        const auto findings = PlatformCheck::check(file);
        ASSERT_EQ(findings.size(), 1U) << file;
        EXPECT_EQ(findings[0].name, PlatformCheck::kUnreadable);
        EXPECT_EQ(findings[0].file, file);
    }
}

TEST(PlatformCheck, IsBounded) {
    std::string metadata = "{\"files\": [{}";
    for (int i = 0; i < 200'000; ++i) metadata += ",{}";
    EXPECT_EQ(foundIn({{"lfa.json", metadata + "]}"}}).size(), 1001U);
    EXPECT_EQ(foundIn({{"lfa.json", std::string(200'000, '[')}}), Lines({"lfa.json:1:193:  [not-json]"}));
    std::string clocks;
    for (int i = 0; i < 50'000; ++i)
        clocks +=
            "<kp:clock kp:name='' kp:instanceRef='' kp:componentRef='' kp:frequency='1' kp:period='1' "
            "kp:status='' kp:id='0'/>";
    const Scratch scratch;
    std::string hpfm = documents::kHpfm;
    hpfm.insert(hpfm.find("</kp:systemClocks>"), clocks);
    EXPECT_EQ(found(scratch.put("a.hpfm", hpfm)).size(), 1001U);
}
