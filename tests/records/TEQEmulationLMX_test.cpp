#include "records/TEQEmulationLMX.h"

#include "records/Breaking.h"
#include "records/Documents.h"

using namespace TEQEmulation;

namespace {

const std::string& kWhole = documents::kEmulation;

}  // namespace

TEST(TEQEmulationLMX, RoundTrip) { expectRoundTrip(kDocument, kWhole); }

TEST(TEQEmulationLMX, Required) {
    expectRequired(kDocument, kWhole, "Root", "", {"VersionMajor", "VersionMinor"});
    expectRequired(kDocument, kWhole, "Emulation", "", {"Name"});
    expectRequired(kDocument, kWhole, "File", "", {"Type", "Name"});
}

TEST(TEQEmulationLMX, Refused) {
    expectRefused(kDocument, kWhole,
                  {
                      {"VersionMajor=\"1\"", "VersionMajor=\"1.0\"", "Root", "is not an integer"},
                      {"VersionMinor=\"4294967295\"", "VersionMinor=\"4294967296\"", "Root", "above the maximum"},
                      {"<Files/>", "", "Emulation", "<Emulation> ends where <Files> is expected"},
                      {"<Files/>", "<Files/><Files/>", "Files", "the end of <Emulation> is expected"},
                      {"<Root ", "<Root xmlns='urn:x' ", "Root", "expected <Root> in no namespace"},
                  });
}
