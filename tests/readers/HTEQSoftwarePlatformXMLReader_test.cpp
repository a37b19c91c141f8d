#include "platform/HTEQSoftwarePlatformXMLReader.h"

#include <gtest/gtest.h>

#include "msg/HEXAll.h"
#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"
#include "readers/Capture.h"

namespace {

std::string spfm(const std::string& configurations, const std::string& attributes = "") {
    return "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='v' teq:library='l' teq:name='n'"
           " teq:version='1.0'>\n<teq:description>d</teq:description>\n<teq:systemConfigurations " +
           attributes + ">\n" + configurations + "</teq:systemConfigurations></teq:platform>";
}

/// A configuration named `name` with `attributes`, and `body` after its description.
std::string configuration(const std::string& attributes, const std::string& body = "") {
    return "<teq:configuration teq:name='c' teq:displayName='C' " + attributes +
           "><teq:description>text</teq:description>" + body + "</teq:configuration>\n";
}

std::string image(const std::string& attributes) {
    return "<teq:bootImages teq:default='i'><teq:image teq:name='i' teq:bif='' teq:readme='' " + attributes +
           "/></teq:bootImages>";
}

std::string group(const std::string& osAttributes) {
    return "<teq:processorGroup teq:name='g' teq:displayName='G' teq:cpuType='x86'>"
           "<teq:os teq:name='linux' teq:displayName='Linux' " +
           osAttributes + "/></teq:processorGroup>";
}

class SoftwareReader : public testing::Test {
protected:
    HTEQSystemConfig* read(const std::string& text) {
        HTEQSoftwarePlatformXMLReader reader(scratch_.put("n.spfm", text), &platform_);
        EXPECT_TRUE(reader.parseFile()) << reader.getErrorMsg();
        EXPECT_EQ(reader.getErrorMsg(), "");
        HSTVector<HTEQSystemConfig*> configs;
        platform_.getSystemConfigs(configs);
        return configs.back();
    }
    Scratch scratch_;
    HTEQSoftwarePlatform platform_;
};

}  // namespace

TEST_F(SoftwareReader, FillsTheModel) {
    const HTEQSystemConfig* config = read(
        spfm(configuration("", "<teq:prebuilt teq:data='p'/>" + image("") + group("teq:sysRoot='s'") + group("")),
             "teq:defaultConfiguration='d'"));
    EXPECT_EQ(platform_.getDefaultConfigName(), "d");
    EXPECT_EQ(config->getName(), "c");
    EXPECT_EQ(config->getPrebuiltData(), "p");
    EXPECT_EQ(config->getBootImgByName("i")->getName(), "i");
    HSTVector<HTEQProcessorGroup*> groups;
    config->getProcessorGroups(groups);
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0]->getCpuType() + groups[0]->getOSName() + groups[0]->getSysRoot(), "x86linuxs");
}

TEST_F(SoftwareReader, QemuFollowsFromTheImage) {
    const struct {
        std::string body;
        bool supported;
    } cases[] = {
        {"", false},
        {image(""), false},
        {image("teq:hwBootBin='x'"), false},
        {image("teq:qemuBoot='x'"), true},
        {image("teq:qemuArguments=''"), true},
        {image("teq:qemuDevicetree='x'"), true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.body);
        const HTEQSystemConfig* config = read(spfm(configuration("", c.body)));
        EXPECT_EQ(config->isQemuSupported(), c.supported);
        EXPECT_EQ(config->getDefaultBootImgName(), c.body.empty() ? "" : "i");
    }
}

TEST_F(SoftwareReader, Runtimes) {
    const struct {
        std::string attribute;
        HSTVector<std::string> runtimes;
    } cases[] = {
        {"", {}},
        {"teq:runtimes=''", {""}},
        {"teq:runtimes='ocl,cpp'", {"ocl", "cpp"}},
        {"teq:runtimes='ocl,, cpp,'", {"ocl", "", " cpp", ""}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.attribute);
        HSTVector<std::string> runtimes;
        read(spfm(configuration(c.attribute)))->getRuntimes(runtimes);
        EXPECT_EQ(runtimes, c.runtimes);
    }
}

TEST_F(SoftwareReader, HypervisorGuest) {
    for (const auto& [attribute, guest] : {std::pair("", false), std::pair("teq:hypervisorGuest='YES'", true),
                                           std::pair("teq:hypervisorGuest='true'", false)}) {
        SCOPED_TRACE(attribute);
        EXPECT_EQ(read(spfm(configuration("", group(attribute))))->getProcGrpByName("g")->IsHypervisorGuest(), guest);
    }
}

TEST_F(SoftwareReader, ReportsAFaultAndLeavesTheModel) {
    const std::string file =
        scratch_.put("bad.spfm", spfm(configuration("") + "<teq:configuration teq:name='x' teq:displayName='y'/>\n"));
    HTEQSoftwarePlatformXMLReader reader(file, &platform_);
    const Capture capture;
    EXPECT_FALSE(reader.parseFile());
    const std::string expected = "Error parsing software platform file: " + file +
                                 "\nLine number:5. <configuration> ends where <description> is expected (column 54)";
    EXPECT_EQ(reader.getErrorMsg(), expected);
    EXPECT_EQ(capture.printed(), expected + "\n");
    ASSERT_EQ(capture.messages.size(), 1U);
    EXPECT_EQ(capture.messages[0].id, "@74-51@%s%d");
    EXPECT_EQ(capture.messages[0].args, (std::vector<std::string>{file, "5"}));
    EXPECT_EQ(platform_.getSystemConfig(), nullptr);
}

TEST_F(SoftwareReader, MissingFile) {
    EXPECT_THROW(HTEQSoftwarePlatformXMLReader(scratch_.path("none"), &platform_), HEXFileNotFoundException);
}

TEST_F(SoftwareReader, ADirectoryIsAFault) {
    const Capture capture;
    HTEQSoftwarePlatformXMLReader reader(scratch_.path(""), &platform_);
    EXPECT_FALSE(reader.parseFile());
    EXPECT_EQ(capture.messages.at(0).args.at(1), "0");
}
