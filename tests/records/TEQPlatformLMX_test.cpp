#include "records/TEQPlatformLMX.h"

#include "records/Breaking.h"
#include "records/Documents.h"

using namespace TEQPlatform;

namespace {

const std::string& kAnonymous = documents::kDescriptor;
using documents::kEmulationOnly;
using documents::kPartitions;

}  // namespace

TEST(TEQPlatformLMX, RoundTrip) {
    for (const std::string& text : {kAnonymous, kEmulationOnly, kPartitions}) expectRoundTrip(kDocument, text);
}

TEST(TEQPlatformLMX, TellsTheChoice) {
    EXPECT_EQ(xml::read(kDocument, kAnonymous, "").hardwarePlatforms.content.index(), 0U);
    EXPECT_EQ(xml::read(kDocument, kEmulationOnly, "").hardwarePlatforms.content.index(), 1U);
    const auto partitions = xml::read(kDocument, kPartitions, "").hardwarePlatforms;
    const auto& list = std::get<Partitioned>(partitions.content).reconfigurablePartitions;
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].content.index(), 0U);
    EXPECT_EQ(list[1].content.index(), 1U);
    EXPECT_EQ(list[1].id.get().value(), 2);
}

TEST(TEQPlatformLMX, Required) {
    expectRequired(kDocument, kAnonymous, "platform", "teq:", {"vendor", "library", "name", "version"});
    for (const char* element : {"hardwarePlatform", "hwEmuPlatform", "softwarePlatform"})
        expectRequired(kDocument, kAnonymous, element, "teq:", {"path", "name"});
    expectRequired(kDocument, kPartitions, "reconfigurablePartition", "teq:", {"id"});
}

TEST(TEQPlatformLMX, Refused) {
    expectRefused(
        kDocument, kAnonymous,
        {
            {"urn:torvane:teq:platform:1.0", "urn:other", "platform", "expected <platform> in the namespace"},
            {"teq:version=\"1.50\"", "teq:version=\"1.5.0\"", "platform", "is not a decimal number"},
            {"teq:schemaVersion=\"2.0\"", "teq:schemaVersion=\"\"", "platform", "is not a decimal number"},
            {"defaultRP=\"7\"", "defaultRP=\"x\"", "hardwarePlatforms", "is not an integer"},
            {"<teq:description>two\nlines</teq:description>", "", "hardwarePlatforms", "<description> is expected"},
            {"<teq:hardwarePlatform teq:path=\"hw\" teq:name=\"n.lfa\"/>\n",
             "<teq:reconfigurablePartition teq:id='1'/>", "reconfigurablePartition",
             "where <hardwarePlatform> or <hwEmuPlatform> is expected"},
            {"<teq:hwEmuPlatform teq:path=\"emu\" teq:name=\"e.lfa\"/>",
             "<teq:hardwarePlatform teq:path=\"hw\" teq:name=\"n.lfa\"/>", "hardwarePlatform",
             "where <hwEmuPlatform> or the end of <hardwarePlatforms> is expected"},
            {"<teq:softwarePlatform teq:path=\"sw\" teq:name=\"n.spfm\"/>", "", "softwarePlatforms",
             "where <softwarePlatform> is expected"},
            {"</teq:platform>", "<teq:softwarePlatforms/></teq:platform>", "softwarePlatforms",
             "the end of <platform> is expected"},
        });
}
