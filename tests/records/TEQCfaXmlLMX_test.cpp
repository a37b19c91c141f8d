#include "records/TEQCfaXmlLMX.h"

#include "records/Breaking.h"
#include "support/CfaXml.h"

using namespace BasePlatform;

namespace {

/// Every element and attribute, and each number at its bounds, in the writer's form: what a platform gives, and what
/// only the format has.
std::string whole() {
    const std::pair<const char*, const char*> changes[] = {
        {R"(VersionMinor="15")", R"(VersionMinor="4294967295")"},
        {R"(CL="7")", R"(CL="18446744073709551615")"},
        {R"(FeatureRomTimestamp="9")", R"(FeatureRomTimestamp="18446744073709551615")"},
        {R"(Stripped="true" DcpEncrypt="true")", R"(Stripped="maybe" DcpEncrypt="")"},
        {R"(<Build UsesPR="true")", R"(<Build Flow="f" UsesPR="true" UsesDCP="d" StaticSynthCheckpoint="s")"},
        {R"(Value="c1"/>)", R"(Value=" c1 "/>
        <ZuncCompileSwitch Name="n2" Value="&lt;&amp;&gt;&quot;'&#10;&#9;&#13;"/>)"},
        {"</IP>", R"(</IP>
      <IP InstanceName="bare" VLNV="v"/>)"},
        {R"("-2" HighestAddress="-1")", R"("-9223372036854775808" HighestAddress="9223372036854775807")"},
        {"</Memory>", R"(</Memory>
        <Memory Name="bare" Type="t" Size="s"/>)"},
        {"<PCIeId", R"(<Drivers>
        <Driver Name="n" Vendor="v" Version="1" Platform="p" File="f"/>
      </Drivers>
      <PCIeId)"},
        {R"( DRBDName="cd")", R"( DRBaseAddress="b" DRBDName="cd")"},
        {"</Port>", R"(</Port>
            <Port Name="bare" Type="t"/>)"},
        {"</PBlock>", R"(</PBlock>
              <PBlock Name="bare"/>)"},
        {"</Device>", R"(</Device>
      <Device Name="bare" Type="t">
        <Core Name="n" Type="t" ComputeUnits="0"/>
      </Device>)"},
        {R"("1" MinorVersion="2" MorwenBuildID="3")", R"("255" MinorVersion="0" MorwenBuildID="4294967295")"},
        {R"(TimeSinceEpoch="5")", R"(TimeSinceEpoch="18446744073709551615")"},
        {R"(Count="6" DDRChannelSize="7")", R"(Count="255" DDRChannelSize="255")"},
        {R"("8" FeatureBitMap="9")", R"("18446744073709551615" FeatureBitMap="18446744073709551615")"},
        {R"(Address0="10")", R"(Address0="4294967295")"},
        {R"("14" MaxPowerLimit="15")", R"("4294967295" MaxPowerLimit="4294967295")"},
    };
    std::string text = kCfaXml;
    for (const auto& [part, replacement] : changes) text = with(text, part, replacement);
    return text;
}

const std::string kWhole = whole();

/// What cannot be left out, and nothing else.
const std::string kLeast =
    R"(<Root VersionMajor="1" VersionMinor="0"><CFA Vendor="" BoardId="" Name="" VersionMajor="0" VersionMinor="0"
 Description=""><Build/><Board Name="" Vendor="" Part=""><Images/></Board><Devices><Device Name="" Type=""><Core Name=""
 Type="" ComputeUnits="0"/></Device></Devices><Files/></CFA></Root>)";

}  // namespace

TEST(TEQCfaXmlLMX, RoundTrip) { expectRoundTrip(kDocument, kWhole); }

TEST(TEQCfaXmlLMX, Required) {
    const std::pair<const char*, std::vector<std::string>> elements[] = {
        {"Root", {"VersionMajor", "VersionMinor"}},
        {"GenAppInfo", {"Name", "Version", "CL"}},
        {"CFA", {"Vendor", "BoardId", "Name", "VersionMajor", "VersionMinor", "Description"}},
        {"Host", {"Architecture"}},
        {"ZuncCompileSwitch", {"Name", "Value"}},
        {"ZuncLinkSwitch", {"Name", "Value"}},
        {"IP", {"InstanceName", "VLNV"}},
        {"Parameter", {"Name", "Value"}},
        {"Board", {"Name", "Vendor", "Part"}},
        {"Interface", {"Id", "Name", "Type"}},
        {"Memory", {"Name", "Type", "Size"}},
        {"Param", {"Name", "Value"}},
        {"Connector", {"Name", "DisplayName", "Type"}},
        {"Img", {"Type", "File"}},
        {"Driver", {"Name", "Vendor", "Version", "File"}},
        {"PCIeId", {"Vendor", "Device", "Subsystem"}},
        {"Device", {"Name", "Type"}},
        {"SystemClock", {"Name", "Frequency"}},
        {"Core", {"Name", "Type", "ComputeUnits"}},
        {"Port", {"Name", "Type"}},
        {"AddressSegment", {"Name", "Base", "Range", "Slave"}},
        {"AvailableResources", {"LUT", "REG", "BRAM", "DSP"}},
        {"PBlock", {"Name"}},
        {"Resource", {"Name", "Val"}},
        {"File", {"Type", "Name"}},
        {"FeatureRom",
         {"MajorVersion", "MinorVersion", "MorwenBuildID", "IPBuildID", "TimeSinceEpoch", "FPGAPartName", "VBNVName",
          "DDRChannelCount", "DDRChannelSize", "DRBaseAddress", "FeatureBitMap"}},
    };
    for (const auto& [element, attributes] : elements) expectRequired(kDocument, kWhole, element, "", attributes);
}

/// All that `kWhole` has beyond this is optional.
TEST(TEQCfaXmlLMX, TheLeast) {
    const Root root = xml::read(kDocument, kLeast, "file");
    EXPECT_FALSE(root.genAppInfo || root.cfa.host || root.cfa.board.pcieId || root.cfa.featureRom);
    EXPECT_FALSE(root.cfa.DefaultOutputType.isSet());
    EXPECT_EQ(xml::read(kDocument, xml::write(kDocument, root), "written"), root);
    for (const char* empty : {"<Interfaces/>", "<Memories/>", "<Connectors/>"}) {
        SCOPED_TRACE(empty);
        std::string text = kLeast;
        text.insert(text.find("<Images/>"), empty);
        EXPECT_NO_THROW(xml::read(kDocument, text, "file"));
    }
}

TEST(TEQCfaXmlLMX, ValueRanges) {
    expectRefused(kDocument, kWhole,
                  {
                      {"ComputeUnits=\"255\"", "ComputeUnits=\"256\"", "Core", "above the maximum, 255"},
                      {"ComputeUnits=\"255\"", "ComputeUnits=\"many\"", "Core", "is not an integer"},
                      {"ComputeUnits=\"255\"", "ComputeUnits=\"\"", "Core", "is not an integer"},
                      {"MorwenBuildID=\"4294967295\"", "MorwenBuildID=\"4294967296\"", "FeatureRom",
                       "above the maximum, 4294967295"},
                      {"MinorVersion=\"0\"", "MinorVersion=\"-1\"", "FeatureRom", "below the minimum, 0"},
                      {"CL=\"18446744073709551615\"", "CL=\"18446744073709551616\"", "GenAppInfo",
                       "above the maximum, 18446744073709551615"},
                      {"LowestAddress=\"-9223372036854775808\"", "LowestAddress=\"-9223372036854775809\"", "Memory",
                       "below the minimum, -9223372036854775808"},
                      {"HighestAddress=\"9223372036854775807\"", "HighestAddress=\"9223372036854775808\"", "Memory",
                       "above the maximum, 9223372036854775807"},
                  });
    std::string blanks = kWhole;
    blanks.replace(blanks.find("\"255\""), 5, "\" \n +255 \"");
    EXPECT_EQ(xml::read(kDocument, blanks, "file"), xml::read(kDocument, kWhole, "file"));
}

TEST(TEQCfaXmlLMX, Order) {
    expectRefused(kDocument, kWhole,
                  {
                      {"<Root ", "<root ", "root", "expected <Root>"},
                      {"<Root ", "<Root xmlns='urn:x' ", "Root", "<Root>"},
                      {"<Interface Id=", "<Interface Id='' Name='' Type=''/><Interface Id=", "Interface",
                       "the end of <Interfaces>"},
                      {"<Files>", "<Files/><Files>", "Files", "<FeatureRom> or the end of <CFA>"},
                      {"<PCIeId ", "<Drivers/><PCIeId ", "Drivers", "<PCIeId> or the end of <Board>"},
                      {"<Build ", "<Build Colour='red' ", "Build", "has no attribute Colour"},
                      {"<Build ", "<Build Flow='again' ", "CFA", "duplicate attribute"},
                      {"<Core>", "<Core Name='inner'>", "Core", "has no attribute Name"},
                      {"<Files>", "<Files>text", "Files", "the text \"text\" stands in <Files>"},
                      {"</Root>", "</Root><Root/>", "", "not well-formed"},
                  });
    std::string free = kWhole;  // what no format minds
    free.insert(free.find("<Board "), "<!-- a comment --><?target data?>\r\n\t");
    free.insert(free.find("<Root ") + 5,
                " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:type='x' xml:lang='en'");
    EXPECT_EQ(xml::read(kDocument, free, "file"), xml::read(kDocument, kWhole, "file"));
}

TEST(TEQCfaXmlLMX, NoDevice) {
    expectRefused(kDocument, kLeast,
                  {{R"(<Device Name="" Type=""><Core Name=""
 Type="" ComputeUnits="0"/></Device>)",
                    "", "Devices", "<Device>"}});
}

TEST(TEQCfaXmlLMX, MissingChildren) {
    const struct {
        const char *part, *element, *words;
    } cases[] = {
        {"<Build/>", "Board", "<Build>"},
        {"<Images/>", "Board", "<Images>"},
        {"<Files/>", "CFA", "<Files>"},
        {R"(<Core Name=""
 Type="" ComputeUnits="0"/>)",
         "Device", "<Core>"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.part);
        try {
            xml::read(kDocument, with(kLeast, c.part, ""), "file");
            ADD_FAILURE() << "accepted";
        } catch (const xml::Exception& e) {
            EXPECT_EQ(e.element(), c.element);
            EXPECT_THAT(e.what(), testing::HasSubstr(c.words));
        }
    }
}

/// The reader takes an empty list of interfaces, the writer makes none; and neither an empty list of devices.
TEST(TEQCfaXmlLMX, ListsThatMustHoldSomething) {
    Root root = xml::read(kDocument, kWhole, "file");
    root.cfa.board.interfaces->interface.reset();
    EXPECT_THROW(xml::write(kDocument, root), xml::Exception);
    root = xml::read(kDocument, kWhole, "file");
    root.cfa.devices.devices.clear();
    EXPECT_THROW(xml::write(kDocument, root), xml::Exception);
    const Root fresh;
    EXPECT_EQ(fresh.VersionMajor.get(), 1U);
    EXPECT_EQ(fresh.VersionMinor.get(), 15U);
    EXPECT_THROW(xml::write(kDocument, fresh), xml::Exception) << "a version of its own does not count as set";
}
