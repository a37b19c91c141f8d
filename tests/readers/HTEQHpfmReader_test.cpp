#include "platform/HTEQHpfmReader.h"

#include <gtest/gtest.h>

#include <memory>

#include "kit/Capture.h"
#include "kit/Hpfm.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQSystemClock.h"

namespace {

const std::string kParts =
    "<kp:parameter kp:name='p' kp:instanceRef='' kp:componentRef='' kp:isValid='' kp:value=''/>"
    "<kp:busInterface kp:name='b'><kp:addressSegment kp:name='s'/></kp:busInterface>"
    "<kp:nocConnectivity kp:instanceRef='n'><kp:busInterface kp:name='of n'/></kp:nocConnectivity>";

template <class T>
std::vector<T*> all(HSTFwdIter<T*>* iterator) {
    const std::unique_ptr<HSTFwdIter<T*>> owned(iterator);
    std::vector<T*> result;
    while (owned->hasNext()) result.push_back(owned->next());
    return result;
}

class HpfmReader : public testing::Test {
protected:
    std::vector<HTEQHardwareBusInterface*> interfaces() { return all(platform_.createBusInterfaceIter()); }
    HPLPlatform platform_;
    Scratch scratch_;
};

}  // namespace

TEST_F(HpfmReader, FillsWhatIsEmptyAndTheDescription) {
    const auto parsed = [this] {
        EXPECT_TRUE(HTEQHpfmReader(hpfm(""), &platform_).parseStream());
        return platform_.getVendor() + " " + platform_.getBoardId() + " " + platform_.getName() + " " +
               platform_.getDescription();
    };
    EXPECT_EQ(parsed(), "torvane.com board board from hpfm") << "both names are the component's";
    platform_.setVendor("v");
    platform_.setBoardId("b");
    platform_.setName("n");
    platform_.setDescription("d");
    EXPECT_EQ(parsed(), "v b n from hpfm");
}

TEST_F(HpfmReader, Clocks) {
    ASSERT_TRUE(HTEQHpfmReader(hpfm(kParts), &platform_).parseStream());
    ASSERT_NE(platform_.getDefaultClock(), nullptr);
    EXPECT_EQ(platform_.getDefaultClock()->getOrigName(), "clk_a");
    std::string clocks;
    for (const auto* clock : all(platform_.createSystemClockIter()))
        clocks += clock->getName() + " of " + clock->getOrigName() + " " + std::to_string(clock->getId()) + "; ";
    EXPECT_EQ(clocks, "PL 3 of clk_a 3; clk_b of clk_b -1; ");
}

TEST_F(HpfmReader, OnlyOneList) {
    ASSERT_TRUE(HTEQHpfmReader(hpfm(kParts), &platform_).parseBusInterfaces());
    EXPECT_EQ(interfaces().size(), 1U);
    EXPECT_TRUE(all(platform_.createNocConnectivityIter()).empty());
    ASSERT_TRUE(HTEQHpfmReader(hpfm(kParts), &platform_).parseNocConnectivity());
    EXPECT_EQ(interfaces().size(), 1U);
    EXPECT_EQ(all(platform_.createNocConnectivityIter()).size(), 1U);
    EXPECT_EQ(platform_.getVendor(), "");
}

TEST_F(HpfmReader, CountsTheBanksOfHighBandwidthMemory) {
    const Capture capture;
    ASSERT_TRUE(HTEQHpfmReader(hpfm(hbm("h", {"true", "preferred", "false"})), &platform_).parseStream());
    EXPECT_TRUE(platform_.isHBMPresent());
    std::ostringstream words;
    platform_.issueNormalizeMemoryBanksMessage(words);
    EXPECT_NE(words.str().find("The HBM instance 'h' has only a subset"), std::string::npos);
    HPLPlatform other;
    ASSERT_TRUE(HTEQHpfmReader(hpfm(hbm("h", {"true"}) + hbm("i", {"true"})), &other).parseStream());
    ASSERT_EQ(capture.taken.size(), 1U);
    EXPECT_EQ(capture.taken[0].id, "@74-261@");
}

TEST_F(HpfmReader, StreamFaultContributesNothing) {
    const std::string text = hpfm(kParts + "\n<kp:busInterface/>");
    for (const auto parse :
         {&HTEQHpfmReader::parseStream, &HTEQHpfmReader::parseBusInterfaces, &HTEQHpfmReader::parseNocConnectivity}) {
        const Capture capture;
        HTEQHpfmReader reader(text, &platform_);
        EXPECT_FALSE((reader.*parse)());
        EXPECT_EQ(
            reader.getErrorMsg(),
            "Error parsing hardware platform stream from CFA\n"
            "Line number:4. <kp:busInterface> appears in <component> where <nocConnectivity>, <resourceEstimates> or "
            "the end of <component> is expected (column 1)\n");
        EXPECT_EQ(capture.printed(), reader.getErrorMsg());
        EXPECT_EQ(capture.lines(), std::vector<std::string>{"@74-31@"});
    }
    EXPECT_EQ(platform_.getVendor(), "");
    EXPECT_TRUE(interfaces().empty());
}

TEST_F(HpfmReader, EmptyText) {
    const Capture capture;
    HTEQHpfmReader reader("", &platform_);
    EXPECT_EQ(capture.printed(), "CRITICAL WARNING: Empty hpfm string passed in\n");
    EXPECT_FALSE(reader.parseStream());
}

TEST_F(HpfmReader, FilesAndTheirFaultsWhichAddUp) {
    const Capture capture;
    HTEQHpfmReader reader("unused", &platform_);
    const auto parsed = [&](const std::string& file) {
        reader.setPlatformFile(file);
        return reader.parseFile();
    };
    const std::string missing = scratch_ / "none", bad = scratch_.put("bad", "<a/>"),
                      good = scratch_.put("a.hpfm", hpfm(""));
    EXPECT_FALSE(parsed(missing));
    const std::string first =
        "Error parsing hardware platform file: " + missing + "\nSpecified hardware platform file doens't exists\n";
    EXPECT_EQ(reader.getErrorMsg(), first);
    EXPECT_EQ(capture.printed(), "");
    EXPECT_FALSE(parsed(bad));
    const std::string second =
        "Error parsing hardware platform file: " + bad +
        "\nLine number:1. the document element is <a> in no namespace; expected <repository> in the namespace "
        "\"urn:torvane:kp:hpfm:1.0\" (column 1)\n";
    EXPECT_EQ(reader.getErrorMsg(), first + second);
    EXPECT_EQ(capture.printed(), second);
    ASSERT_EQ(capture.taken.size(), 1U);
    EXPECT_EQ(capture.taken[0].id, "@74-12@");
    EXPECT_EQ(capture.taken[0].args, (std::vector<std::string>{second, "1"}));
    EXPECT_TRUE(parsed(good));
    EXPECT_EQ(platform_.getPlatformFile(), good);
    EXPECT_EQ(platform_.getVendor(), "torvane.com");
}
