#include "records/TEQCfaXmlLMX.h"

#include "records/Breaking.h"

using namespace BasePlatform;

namespace {

/// Every element and attribute, in the writer's form.
const std::string kWhole =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<Root VersionMajor="1" VersionMinor="4294967295">
  <GenAppInfo Name="g" Version="v" CL="18446744073709551615" TimeStamp="t"/>
  <CFA Vendor="v" BoardId="b" Name="n" VersionMajor="0" VersionMinor="4294967295" Description="d" FeatureRomTimestamp="18446744073709551615" DcpLogicFunctionStripped="maybe" DcpEncrypt="" Unified="true" Fixed="false" DefaultOutputType="o">
    <Host Architecture="a" Interface="i"/>
    <Build Flow="f" UsesPR="u" UsesDCP="d" StaticSynthCheckpoint="s" PlatformState="p" AcceleratorBinaryFormat="af" AcceleratorBinaryContent="ac" ValidBinaryContentValues="x,,y" TopModuleName="t">
      <ZuncCompileSwitches>
        <ZuncCompileSwitch Name="n1" Value=" v1 "/>
        <ZuncCompileSwitch Name="n2" Value="&lt;&amp;&gt;&quot;'&#10;&#9;&#13;"/>
      </ZuncCompileSwitches>
      <ZuncLinkSwitches>
        <ZuncLinkSwitch Name="n" Value="v"/>
      </ZuncLinkSwitches>
    </Build>
    <DesignIPs>
      <IP InstanceName="i" VLNV="v">
        <Configuration>
          <Parameter Name="n" Value="v"/>
        </Configuration>
      </IP>
      <IP InstanceName="bare" VLNV="v"/>
    </DesignIPs>
    <Board Name="n" Vendor="v" Part="p" BoardPart="bp">
      <Interfaces>
        <Interface Id="i" Name="n" Type="t"/>
      </Interfaces>
      <Memories>
        <Memory Name="n" Type="t" Size="s" LowestAddress="-9223372036854775808" HighestAddress="9223372036854775807">
          <Config>
            <Param Name="n" Value="v"/>
          </Config>
        </Memory>
        <Memory Name="bare" Type="t" Size="s"/>
      </Memories>
      <Connectors>
        <Connector Name="n" DisplayName="d" Type="t" ConnectedConnector="c" ConnectedConnectorDisplayName="cd" IsLocked="l"/>
      </Connectors>
      <Images>
        <Img Type="t" File="f"/>
      </Images>
      <Drivers>
        <Driver Name="n" Vendor="v" Version="1" Platform="p" File="f"/>
      </Drivers>
      <PCIeId Vendor="v" Device="d" Subsystem="s" FeatureId="f"/>
    </Board>
    <Devices>
      <Device Name="n" Type="t" FpgaDevice="f">
        <SystemClocks>
          <SystemClock Name="n" Frequency="f"/>
        </SystemClocks>
        <Core Name="n" Type="t" ComputeUnits="255" VLNV="v" InstancePath="i" ParentRMInstancePath="p" ClockFreq="c" DRBaseAddress="b" DRBDName="d">
          <Core>
            <Config>
              <Param Name="n" Value="v"/>
            </Config>
            <Port Name="n" Type="t" Mode="m" Protocol="p" Base="b" Range="r" DataWidth="w" IdWidth="i" UserWidth="u" AddressWidth="a" AddressOffset="o" AddressRange="ar" MaxBurstLength="l" Frequency="f" Direction="d" Polarity="po">
              <AddressSegments>
                <AddressSegment Name="n" Base="b" Range="r" Slave="s"/>
              </AddressSegments>
            </Port>
            <Port Name="bare" Type="t"/>
            <AvailableResources LUT="l" REG="r" BRAM="b" DSP="d">
              <PBlock Name="n" ValidSLRs="s">
                <Resource Name="n" Val="v"/>
              </PBlock>
              <PBlock Name="bare"/>
            </AvailableResources>
          </Core>
        </Core>
      </Device>
      <Device Name="bare" Type="t">
        <Core Name="n" Type="t" ComputeUnits="0"/>
      </Device>
    </Devices>
    <Files>
      <File Type="t" Name="n" UsedIn="u" ProcessingOrder="p"/>
    </Files>
    <FeatureRom MajorVersion="255" MinorVersion="0" MorwenBuildID="4294967295" IPBuildID="1" TimeSinceEpoch="18446744073709551615" FPGAPartName="p" VBNVName="v" DDRChannelCount="255" DDRChannelSize="255" DRBaseAddress="18446744073709551615" FeatureBitMap="18446744073709551615" UUID="u" CDMABaseAddress0="4294967295" CDMABaseAddress1="1" CDMABaseAddress2="2" CDMABaseAddress3="3" MaxTempLimit="4294967295" MaxPowerLimit="4294967295"/>
  </CFA>
</Root>
)";

/// What cannot be left out, and nothing else.
const std::string kLeast =
    R"(<Root VersionMajor="1" VersionMinor="0"><CFA Vendor="" BoardId="" Name="" VersionMajor="0" VersionMinor="0"
 Description=""><Build/><Board Name="" Vendor="" Part=""><Images/></Board><Devices><Device Name="" Type=""><Core Name=""
 Type="" ComputeUnits="0"/></Device></Devices><Files/></CFA></Root>)";

std::string without(std::string text, const std::string& part) {
    const auto at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return text.erase(at, part.size());
}

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
            xml::read(kDocument, without(kLeast, c.part), "file");
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
