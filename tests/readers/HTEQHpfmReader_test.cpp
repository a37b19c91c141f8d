#include "platform/HTEQHpfmReader.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQSystemClock.h"
#include "readers/Capture.h"
#include "readers/Hpfm.h"

namespace {

const std::string kParts =
    "<kp:parameter kp:name='p1' kp:instanceRef='p2' kp:componentRef='p3' kp:isValid='p4' kp:value='p5'/>"
    "<kp:busInterface kp:busTypeRef='b1' kp:name='b2' kp:instanceRef='b3' kp:componentRef='b4' kp:mode='b5'"
    " kp:category='b6' kp:dataWidth='512' kp:clockRef='b7' kp:resetRef='not read' kp:busInterfaceRef='b8'"
    " kp:memport='b9' kp:sptag='ba' kp:direction='bb' kp:addressSegment='bc' kp:memoryInstance='bd' kp:idBits='4'"
    " kp:size='be' kp:slr='bf' kp:peakMemoryBandwidth='bg' kp:maxMasters='15' kp:isrId='3'>"
    "<kp:addressSegment kp:baseName='s1' kp:index='7' kp:memoryInstance='s2' kp:auto='s3' kp:sptag='s4' kp:slr='s5'"
    " kp:maxMasters='16' kp:name='s6' kp:instanceRef='s7' kp:region='s8' kp:readBwUsed='-5'"
    " kp:writeBwUsed='99999999999' kp:interleave='4096'/></kp:busInterface>"
    "<kp:nocConnectivity kp:instanceRef='n1'><kp:busInterface kp:name='n2'/></kp:nocConnectivity>";

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

TEST_F(HpfmReader, FillsWhatIsEmpty) {
    ASSERT_TRUE(HTEQHpfmReader(hpfm(""), &platform_).parseStream());
    EXPECT_EQ(platform_.getVendor(), "torvane.com");
    EXPECT_EQ(platform_.getBoardId(), "board");  // the component's name
    EXPECT_EQ(platform_.getName(), "board");
    EXPECT_EQ(platform_.getDescription(), "from hpfm");
    EXPECT_EQ(platform_.getBRAMCount(), 1);
    EXPECT_EQ(platform_.getDSPCount(), 2);
    EXPECT_EQ(platform_.getFFCount(), 3);
    EXPECT_EQ(platform_.getLUTCount(), 4);
}

TEST_F(HpfmReader, KeepsWhatIsThereButTheDescription) {
    platform_.setVendor("v");
    platform_.setBoardId("b");
    platform_.setName("n");
    platform_.setDescription("d");
    ASSERT_TRUE(HTEQHpfmReader(hpfm(""), &platform_).parseStream());
    EXPECT_EQ(platform_.getVendor(), "v");
    EXPECT_EQ(platform_.getBoardId(), "b");
    EXPECT_EQ(platform_.getName(), "n");
    EXPECT_EQ(platform_.getDescription(), "from hpfm");
}

TEST_F(HpfmReader, Clocks) {
    ASSERT_TRUE(HTEQHpfmReader(hpfm(""), &platform_).parseStream());
    ASSERT_NE(platform_.getDefaultClock(), nullptr);
    EXPECT_EQ(platform_.getDefaultClock()->getOrigName(), "clk_a");
    const auto clocks = all(platform_.createSystemClockIter());
    ASSERT_EQ(clocks.size(), 2U);
    EXPECT_EQ(clocks[0]->getName(), "PL 3");
    EXPECT_EQ(clocks[0]->getOrigName(), "clk_a");
    EXPECT_EQ(clocks[0]->getId(), 3);
    EXPECT_EQ(clocks[0]->getInstRef(), "inst");
    EXPECT_EQ(clocks[0]->getCompRef(), "comp");
    EXPECT_EQ(clocks[0]->getFrequency(), "300.000000");
    EXPECT_EQ(clocks[0]->getPeriod(), "3.333");
    EXPECT_EQ(clocks[0]->getNormalizedPeriod(), ".003333");
    EXPECT_EQ(clocks[0]->getStatus(), "scalable");
    EXPECT_EQ(clocks[1]->getName(), "clk_b");
    EXPECT_EQ(clocks[1]->getId(), -1);
}

TEST_F(HpfmReader, ParametersInterfacesAndSegments) {
    ASSERT_TRUE(HTEQHpfmReader(hpfm(kParts), &platform_).parseStream());
    const auto params = all(platform_.createIPParamIter());
    ASSERT_EQ(params.size(), 1U);
    EXPECT_EQ(params[0]->getName(), "p1");
    EXPECT_EQ(params[0]->getInstRef(), "p2");
    EXPECT_EQ(params[0]->getCompRef(), "p3");
    EXPECT_EQ(params[0]->getIsValid(), "p4");
    EXPECT_EQ(params[0]->getValue(), "p5");

    ASSERT_EQ(interfaces().size(), 1U);
    const HTEQHardwareBusInterface& b = *interfaces()[0];
    const std::string texts[] = {
        b.getBusTypeRef(),     b.getName(),     b.getInstRef(),   b.getCompRef(),
        b.getMode(),           b.getCategory(), b.getClockRef(),  b.getBusInterfaceRef(),
        b.getMemPort(),        b.getSPTag(),    b.getDirection(), b.getAddressSegment(),
        b.getMemoryInstance(), b.getSize(),     b.getSLR(),       b.getPeakMemoryBandwidth()};
    const char* const keys = "123456789abcdefg";
    for (std::size_t i = 0; i < std::size(texts); ++i) EXPECT_EQ(texts[i], std::string("b") + keys[i]);
    EXPECT_EQ(b.getResetRef(), "");
    EXPECT_EQ(b.getDataWidth(), 512);
    EXPECT_EQ(b.getNumIdBits(), 4);
    EXPECT_EQ(b.getMaxMasters(), 15);
    EXPECT_EQ(b.getISRId(), 3);

    HSTVector<HTEQHardwareAddressSegment*> segments;
    b.getAddressSegments(segments);
    ASSERT_EQ(segments.size(), 1U);
    const HTEQHardwareAddressSegment& s = *segments[0];
    const std::string segmentTexts[] = {s.getBaseName(), s.getMemoryInstance(), s.getAuto(),        s.getSpTag(),
                                        s.getSlr(),      s.getName(),           s.getInstanceRef(), s.getRegion()};
    for (std::size_t i = 0; i < std::size(segmentTexts); ++i) EXPECT_EQ(segmentTexts[i], std::string("s") + keys[i]);
    EXPECT_EQ(s.getIndex(), 7U);
    EXPECT_EQ(s.getMaxMasters(), 16U);
    EXPECT_EQ(s.getReadBwUsed(), -5);
    EXPECT_EQ(s.getWriteBwUsed(), std::numeric_limits<int>::max());  // the nearest that the model can hold
    EXPECT_EQ(s.getInterleave(), 4096U);

    const auto noc = all(platform_.createNocConnectivityIter());
    ASSERT_EQ(noc.size(), 1U);
    EXPECT_EQ(noc[0]->getInstanceRef(), "n1");
    EXPECT_NE(noc[0]->getBusInterfaceByName("n2"), nullptr);
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
    EXPECT_TRUE(capture.messages.empty());
    HPLPlatform other;
    ASSERT_TRUE(HTEQHpfmReader(hpfm(hbm("h", {"true"}) + hbm("i", {"true"})), &other).parseStream());
    ASSERT_EQ(capture.messages.size(), 1U);
    EXPECT_EQ(capture.messages[0].id, "@74-261@");
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
            "Line number:4. <kp:busInterface> stands in <component> where <nocConnectivity>, <resourceEstimates> or "
            "the end of <component> is expected (column 1)\n");
        EXPECT_EQ(capture.printed(), reader.getErrorMsg());
        ASSERT_EQ(capture.messages.size(), 1U);
        EXPECT_EQ(capture.messages[0].id, "@74-31@");
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

TEST_F(HpfmReader, File) {
    HTEQHpfmReader reader("unused", &platform_);
    reader.setPlatformFile(scratch_.put("a.hpfm", hpfm("")));
    EXPECT_TRUE(reader.parseFile());
    EXPECT_EQ(platform_.getPlatformFile(), scratch_.path("a.hpfm"));
    EXPECT_EQ(platform_.getVendor(), "torvane.com");
}

TEST_F(HpfmReader, FileFaultsAddUp) {
    const Capture capture;
    HTEQHpfmReader reader("unused", &platform_);
    const std::string missing = scratch_.path("none"), bad = scratch_.put("bad", "<a/>");
    reader.setPlatformFile(missing);
    EXPECT_FALSE(reader.parseFile());
    const std::string first =
        "Error parsing hardware platform file: " + missing + "\nSpecified hardware platform file doens't exists\n";
    EXPECT_EQ(reader.getErrorMsg(), first);
    EXPECT_EQ(capture.printed(), "");
    reader.setPlatformFile(bad);
    EXPECT_FALSE(reader.parseFile());
    const std::string second = "Error parsing hardware platform file: " + bad +
                               "\nLine number:1. the document element is <a>; expected <repository> in the namespace "
                               "\"urn:torvane:kp:hpfm:1.0\" (column 1)\n";
    EXPECT_EQ(reader.getErrorMsg(), first + second);
    EXPECT_EQ(capture.printed(), second);
    ASSERT_EQ(capture.messages.size(), 1U);
    EXPECT_EQ(capture.messages[0].id, "@74-12@");
    EXPECT_EQ(capture.messages[0].args, (std::vector<std::string>{second, "1"}));
}
