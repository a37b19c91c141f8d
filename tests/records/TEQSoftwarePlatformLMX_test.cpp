#include "records/TEQSoftwarePlatformLMX.h"

#include "records/Breaking.h"

using namespace TEQSoftwarePlatform;

namespace {

const std::string kWhole =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0" teq:schemaVersion="1">
  <teq:description>d</teq:description>
  <teq:systemConfigurations teq:defaultConfiguration="c">
    <teq:configuration teq:name="c" teq:displayName="C" teq:defaultProcessorGroup="g" teq:runtimes="ocl,cpp">
      <teq:description></teq:description>
      <teq:prebuilt teq:data="pre"/>
      <teq:bootImages teq:default="i">
        <teq:image teq:name="i" teq:type="t" teq:bif="b" teq:imageData="data" teq:bootmode="sd" teq:rootfs="r" teq:mountPath="/m" teq:readme="me" teq:qemuDevicetree="dt" teq:qemuBoot="qb" teq:qemuArguments="qa" teq:hwBootBin="bin"/>
      </teq:bootImages>
      <teq:processorGroup teq:name="g" teq:displayName="G" teq:cpuType="x86" teq:architecture="64" teq:cpuInstance="0">
        <teq:os teq:name="linux" teq:displayName="Linux" teq:hypervisorGuest="YES" teq:includePaths="ip" teq:libraryPaths="lp" teq:libraryNames="ln" teq:ldscript="ld" teq:sysRoot="sr" teq:bspConfig="bc" teq:bspLibraryPaths="bl" teq:bspIncludePaths="bi" teq:bspRepo="br" teq:compilerOptions="co" teq:linkerOptions="lo" teq:osDependency="od" teq:crossCompilerType="cc" teq:toolConfig="tc"/>
      </teq:processorGroup>
      <teq:processorGroup teq:name="h" teq:displayName="H" teq:cpuType="x86">
        <teq:os teq:name="standalone" teq:displayName="Alone"/>
      </teq:processorGroup>
    </teq:configuration>
    <teq:configuration teq:name="d" teq:displayName="D">
      <teq:description></teq:description>
    </teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)";

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
