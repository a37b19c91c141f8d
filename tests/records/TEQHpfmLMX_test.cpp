#include "records/TEQHpfmLMX.h"

#include "records/Breaking.h"

using namespace WELHardwarePlatform;

namespace {

const std::string kWhole =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v">
  <kp:component kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v" kp:type="board" kp:BRAM="1" kp:DSP="2" kp:FF="3" kp:LUT="4294967295">
    <kp:platformInfo>
      <kp:deviceInfo kp:name="d" kp:architecture="a" kp:device="d" kp:package="p" kp:speedGrade="-2"/>
      <kp:registeredDevices kp:kio="1" kp:uio="65535"/>
      <kp:description>text</kp:description>
      <kp:systemClocks kp:defaultClock="0">
        <kp:clock kp:name="c" kp:instanceRef="i" kp:componentRef="r" kp:frequency="300.000000" kp:period="3.333" kp:status="fixed" kp:id="0" kp:normalizedPeriod=".003333" kp:clkDomain="cd"/>
        <kp:clock kp:name="" kp:instanceRef="" kp:componentRef="" kp:frequency="-1" kp:period="+1." kp:status=""/>
      </kp:systemClocks>
    </kp:platformInfo>
    <kp:parameter kp:name="p" kp:instanceRef="i" kp:componentRef="r" kp:isValid="true" kp:value="x"/>
    <kp:busInterface kp:busTypeRef="aximm" kp:name="b" kp:instanceRef="i" kp:componentRef="r" kp:mode="master" kp:category="c" kp:dataWidth="-32768" kp:clockRef="k" kp:resetRef="x" kp:busInterfaceRef="br" kp:memport="M" kp:sptag="DDR" kp:cacheCoherent="true" kp:direction="in" kp:irq="5" kp:addressSegment="seg" kp:memoryInstance="mi" kp:clkDomain="cd" kp:hasTlast="false" kp:idBits="4" kp:cardinality="1" kp:size="16GB" kp:slr="SLR0" kp:peakMemoryBandwidth="19.2" kp:maxMasters="15" kp:isrId="2" kp:auto="true">
      <kp:addressSegment kp:baseName="base" kp:index="3" kp:memoryInstance="mi" kp:auto="preferred" kp:sptag="HBM" kp:slr="SLR1" kp:maxMasters="16" kp:name="s" kp:instanceRef="i" kp:region="r" kp:readBwUsed="12345678901234567890" kp:writeBwUsed="-1" kp:interleave="4096"/>
      <kp:addressSegment/>
    </kp:busInterface>
    <kp:busInterface kp:name="bare"/>
    <kp:nocConnectivity kp:instanceRef="noc">
      <kp:busInterface kp:name="nb"/>
    </kp:nocConnectivity>
    <kp:nocConnectivity kp:instanceRef="idle"/>
    <kp:resourceEstimates kp:BRAM="1" kp:DSP="2" kp:FF="3" kp:LUT="4" kp:nocChannelMaxBw="5" kp:nocPlNsu="6" kp:nocPlNmu="7" kp:nocTilNsu="8" kp:nocTilNmu="9"/>
  </kp:component>
</kp:repository>
)";

}  // namespace

TEST(TEQHpfmLMX, RoundTrip) { expectRoundTrip(kDocument, kWhole); }

TEST(TEQHpfmLMX, Required) {
    expectRequired(kDocument, kWhole, "repository", "kp:", {"name", "library", "version", "vendor"});
    expectRequired(kDocument, kWhole, "component",
                   "kp:", {"name", "library", "version", "vendor", "type", "BRAM", "DSP", "FF", "LUT"});
    expectRequired(kDocument, kWhole, "deviceInfo", "kp:", {"architecture", "device", "package", "speedGrade"});
    expectRequired(kDocument, kWhole, "registeredDevices", "kp:", {"kio", "uio"});
    expectRequired(kDocument, kWhole, "systemClocks", "kp:", {"defaultClock"});
    expectRequired(kDocument, kWhole, "clock",
                   "kp:", {"name", "instanceRef", "componentRef", "frequency", "period", "status"});
    expectRequired(kDocument, kWhole, "parameter",
                   "kp:", {"name", "instanceRef", "componentRef", "isValid", "value"});
    expectRequired(kDocument, kWhole, "busInterface", "kp:", {"name"});
    expectRequired(kDocument, kWhole, "nocConnectivity", "kp:", {"instanceRef"});
    expectRequired(kDocument, kWhole, "resourceEstimates", "kp:", {"BRAM", "DSP", "FF", "LUT"});
}

TEST(TEQHpfmLMX, ValueRanges) {
    expectRefused(kDocument, kWhole,
                  {
                      {"dataWidth=\"-32768\"", "dataWidth=\"-32769\"", "busInterface", "below the minimum, -32768"},
                      {"irq=\"5\"", "irq=\"65536\"", "busInterface", "above the maximum, 65535"},
                      {"idBits=\"4\"", "idBits=\"4294967296\"", "busInterface", "above the maximum, 4294967295"},
                      {"cacheCoherent=\"true\"", "cacheCoherent=\"yes\"", "busInterface", "is not a Boolean"},
                      {"writeBwUsed=\"-1\"", "writeBwUsed=\"1.5\"", "addressSegment", "is not an integer"},
                      {"uio=\"65535\"", "uio=\"65536\"", "registeredDevices", "above the maximum, 65535"},
                      {"frequency=\"300.000000\"", "frequency=\"300 MHz\"", "clock", "is not a decimal number"},
                      {"defaultClock=\"0\"", "defaultClock=\"-1\"", "systemClocks", "below the minimum, 0"},
                  });
}

TEST(TEQHpfmLMX, Order) {
    expectRefused(
        kDocument, kWhole,
        {
            {"<kp:description>text</kp:description>", "", "systemClocks", "where <description> is expected"},
            {"<kp:nocConnectivity kp:instanceRef=\"idle\"/>", "<kp:busInterface kp:name='late'/>", "busInterface",
             "where <nocConnectivity>, <resourceEstimates> or the end of <component>"},
            {"</kp:component>", "</kp:component><kp:component/>", "component", "the end of <repository>"},
            {"kp:repository", "kp:busInterface", "busInterface", "expected <repository>"},
        });
}
