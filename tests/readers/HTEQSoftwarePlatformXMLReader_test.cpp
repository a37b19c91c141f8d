#include "platform/HTEQSoftwarePlatformXMLReader.h"

#include <gtest/gtest.h>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "msg/HEXAll.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"

namespace {

std::string spfm(const std::string& configurations) {
    return "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='v' teq:library='l' teq:name='n'"
           " teq:version='1.0'>\n<teq:description>d</teq:description>\n<teq:systemConfigurations>\n" +
           configurations + "</teq:systemConfigurations></teq:platform>";
}

/// A configuration with `attributes`, and `body` after its description.
std::string configuration(const std::string& attributes, const std::string& body = "") {
    return "<teq:configuration teq:name='c' teq:displayName='C' " + attributes +
           "><teq:description>text</teq:description>" + body + "</teq:configuration>\n";
}

const std::string kImage = "<teq:bootImages teq:default='i'><teq:image teq:name='i' teq:bif='' teq:readme=''";
const std::string kGroup =
    "<teq:processorGroup teq:name='g' teq:displayName='G' teq:cpuType='x86'><teq:os teq:name='linux' "
    "teq:displayName='Linux'";

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

TEST_F(SoftwareReader, AttributesThatMeanSomething) {
    cases::expectTexts(
        ZR_SOURCE_DIR "/tests/cases/readers/software.case", [this](const auto& name, const auto& text) {
            std::string result;
            if (name.starts_with("image")) {
                const HTEQSystemConfig* config =
                    read(spfm(configuration("", text == "none" ? "" : kImage + text + "/></teq:bootImages>")));
                result = (config->isQemuSupported() ? "QEMU " : "no QEMU ") + config->getDefaultBootImgName();
            } else if (name.starts_with("os")) {
                const auto* config = read(spfm(configuration("", kGroup + text + "/></teq:processorGroup>")));
                result = config->getProcGrpByName("g")->IsHypervisorGuest() ? "guest" : "no guest";
            } else {
                HSTVector<std::string> runtimes;
                read(spfm(configuration(text)))->getRuntimes(runtimes);
                for (const std::string& runtime : runtimes) result += "(" + runtime + ")";
            }
            return result;
        });
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
    ASSERT_EQ(capture.taken.size(), 1U);
    EXPECT_EQ(capture.taken[0].id, "@74-51@%s%d");
    EXPECT_EQ(capture.taken[0].args, (std::vector<std::string>{file, "5"}));
    EXPECT_EQ(platform_.getSystemConfig(), nullptr);
}

TEST_F(SoftwareReader, PathsThatAreNoFiles) {
    EXPECT_THROW(HTEQSoftwarePlatformXMLReader(scratch_ / "none", &platform_), HEXFileNotFoundException);
    const Capture capture;
    HTEQSoftwarePlatformXMLReader reader(scratch_.str(), &platform_);
    EXPECT_FALSE(reader.parseFile());
    EXPECT_EQ(capture.taken.at(0).args.at(1), "0") << "a directory has no lines";
}
