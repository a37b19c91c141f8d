#include "records/TEQHpfmLMX.h"

#include "records/Breaking.h"
#include "records/Documents.h"

using namespace WELHardwarePlatform;

namespace {

const std::string& kWhole = documents::kHpfm;

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
