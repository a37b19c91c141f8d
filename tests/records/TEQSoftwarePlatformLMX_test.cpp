#include "records/TEQSoftwarePlatformLMX.h"

#include "records/Breaking.h"
#include "records/Documents.h"

using namespace TEQSoftwarePlatform;

namespace {

const std::string& kWhole = documents::kSoftware;

}  // namespace

TEST(TEQSoftwarePlatformLMX, RoundTrip) { expectRoundTrip(kDocument, kWhole); }

TEST(TEQSoftwarePlatformLMX, Required) {
    expectRequired(kDocument, kWhole, "platform", "teq:", {"vendor", "library", "name", "version"});
    expectRequired(kDocument, kWhole, "configuration", "teq:", {"name", "displayName"});
    expectRequired(kDocument, kWhole, "prebuilt", "teq:", {"data"});
    expectRequired(kDocument, kWhole, "bootImages", "teq:", {"default"});
    expectRequired(kDocument, kWhole, "image", "teq:", {"name", "bif", "readme"});
    expectRequired(kDocument, kWhole, "processorGroup", "teq:", {"name", "displayName", "cpuType"});
    expectRequired(kDocument, kWhole, "os", "teq:", {"name", "displayName"});
}

TEST(TEQSoftwarePlatformLMX, OptionalAttributesStayUnset) {
    const auto platform = xml::read(kDocument, kWhole, "");
    const Configuration& second = platform.systemConfigurations.configurations.at(1);
    EXPECT_FALSE(second.runtimes.isSet());
    EXPECT_EQ(second.runtimes.get(), "");
    EXPECT_FALSE(second.bootImages);
    EXPECT_TRUE(second.processorGroups.empty());
}

TEST(TEQSoftwarePlatformLMX, Refused) {
    const std::string emptyDescription = "      <teq:description></teq:description>\n";
    expectRefused(kDocument, kWhole,
                  {
                      {emptyDescription, "", "prebuilt", "where <description> is expected"},
                      {"</teq:bootImages>", "<teq:image teq:name='' teq:bif='' teq:readme=''/></teq:bootImages>",
                       "image", "where the end of <bootImages> is expected"},
                      {emptyDescription, emptyDescription + emptyDescription, "description",
                       "where <prebuilt>, <bootImages>, <processorGroup> or the end of <configuration> is expected"},
                      {"      </teq:processorGroup>", "<teq:os teq:name='' teq:displayName=''/></teq:processorGroup>",
                       "os", "where the end of <processorGroup> is expected"},
                      {"<teq:systemConfigurations teq:defaultConfiguration=\"c\">",
                       "<teq:systemConfigurations/><teq:systemConfigurations>", "systemConfigurations",
                       "<systemConfigurations> ends where <configuration> is expected"},
                  });
}
