#include "platform/HTEQPlatformXMLReader.h"

#include <gmock/gmock.h>

#include <memory>

#include "kit/Capture.h"
#include "msg/HEXAll.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"

namespace {

std::string zdf(const std::string& hardware, const std::string& attributes = "") {
    return "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='v' teq:library='l' teq:name='n'"
           " teq:version=' 1.50 '>\n<teq:description>some text</teq:description>\n<teq:hardwarePlatforms " +
           attributes + ">" + hardware +
           "</teq:hardwarePlatforms>\n<teq:softwarePlatforms><teq:softwarePlatform teq:path='x/../sw' "
           "teq:name='n.spfm'/>"
           "</teq:softwarePlatforms></teq:platform>";
}

const std::string kHardware = "<teq:hardwarePlatform teq:path='y/../hw' teq:name='n.lfa'/>";
const std::string kEmulation = "<teq:hwEmuPlatform teq:path='emu' teq:name='n.lfa'/>";

std::string partition(const std::string& hardware) {
    return "\n<teq:reconfigurablePartition teq:id='4'>" + hardware + "</teq:reconfigurablePartition>";
}

class DescriptorReader : public testing::Test {
protected:
    bool read(const std::string& text) {
        file_ = scratch_.put("n.zdf", text);
        platform_ = std::make_unique<HTEQPlatform>();
        HTEQPlatformXMLReader reader(file_, platform_.get());
        const bool done = reader.parseFile();
        error_ = reader.getErrorMsg();
        return done;
    }
    Scratch scratch_;
    std::unique_ptr<HTEQPlatform> platform_;
    std::string file_, error_;
};

}  // namespace

TEST_F(DescriptorReader, DirectHardware) {
    const struct {
        std::string text, hardware, emulation;
    } cases[] = {
        {kHardware, "hw/n.lfa", ""},
        {kHardware + kEmulation, "hw/n.lfa", "emu/n.lfa"},
        {kEmulation, "emu/n.lfa", "emu/n.lfa"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        ASSERT_TRUE(read(zdf(c.text)));
        EXPECT_EQ(error_, "");
        EXPECT_EQ(platform_->getVersion(), "1.50");
        EXPECT_EQ(platform_->getPlatformFile(), file_);
        EXPECT_EQ(platform_->getHardwarePlatformFile(), scratch_ / c.hardware);
        EXPECT_EQ(platform_->getHardwareEmuPlatformFile(), c.emulation.empty() ? "" : scratch_ / c.emulation);
        EXPECT_EQ(platform_->getSoftwarePlatformFile(), scratch_ / "x/../sw/n.spfm");  // keeps its relative parts
    }
    EXPECT_TRUE(platform_->hasDistinctHardwareEmulationPlatform()) << "emulation alone serves as both";
}

TEST_F(DescriptorReader, Partitions) {
    ASSERT_TRUE(read(zdf(partition(kHardware + kEmulation) + partition(kEmulation), "teq:defaultRP='9'")));
    const auto& partitions = platform_->getReconfigurablePartitions();
    ASSERT_EQ(partitions.size(), 2U);
    EXPECT_EQ(partitions[0]->getHardwarePlatformFile(), scratch_ / "hw/n.lfa");
    EXPECT_EQ(partitions[0]->getHardwareEmulationPlatformFile(), scratch_ / "emu/n.lfa");
    EXPECT_EQ(partitions[1]->getHardwarePlatformFile(), "");  // unlike a platform of emulation alone
    EXPECT_EQ(partitions[1]->getHardwareEmulationPlatformFile(), scratch_ / "emu/n.lfa");
    EXPECT_EQ(platform_->getReconfigurablePartition(4), partitions[1]);
    EXPECT_EQ(platform_->getDefaultRPId(), 9U);
    EXPECT_EQ(platform_->getHardwarePlatform(), nullptr);
    EXPECT_EQ(platform_->getHardwarePlatformFile(), "");
}

TEST_F(DescriptorReader, PartitionsHaveALimit) {
    const std::string most = repeated(partition(kHardware), 1024);
    ASSERT_TRUE(read(zdf(most))) << error_;
    EXPECT_EQ(platform_->getReconfigurablePartitions().size(), 1024U);
    EXPECT_EQ(platform_->getDefaultRPId(), 0U) << "none is named";

    const Capture capture;
    EXPECT_FALSE(read(zdf(most + partition(kHardware))));
    EXPECT_NE(error_.find("Line number:1028. <hardwarePlatforms> has more than 1024 <reconfigurablePartition>"),
              std::string::npos)
        << error_;
}

TEST_F(DescriptorReader, ReportsAFaultAndLeavesThePlatform) {
    const Capture capture;
    EXPECT_FALSE(read(zdf("")));
    EXPECT_EQ(error_, "Error parsing platform file: " + file_ +
                          "\nLine number:3. <hardwarePlatforms> ends where <hardwarePlatform>, <hwEmuPlatform> or "
                          "<reconfigurablePartition> is expected (column 25)\n");
    EXPECT_EQ(capture.printed(), error_);
    ASSERT_EQ(capture.taken.size(), 1U);
    EXPECT_EQ(capture.taken[0].id, "@74-9@%s");
    EXPECT_EQ(capture.taken[0].mask, MsgMask::error);
    EXPECT_EQ(capture.taken[0].args, (std::vector<std::string>{file_, "3"}));
    EXPECT_EQ(platform_->getVendor(), "");
}

TEST_F(DescriptorReader, MissingFile) {
    for (const std::string& file : {std::string(), scratch_ / "none.zdf"})
        EXPECT_THAT([&] { HTEQPlatformXMLReader reader(file, nullptr); },
                    testing::Throws<HEXFileNotFoundException>(
                        testing::Property(&HEXFileNotFoundException::what, testing::StrEq(file))));
}
