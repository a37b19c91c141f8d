#include "platform/HTEQPlatformHelper.h"

#include <gmock/gmock.h>

#include "kit/Capture.h"
#include "kit/Repository.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Strings = HSTVector<std::string>;

constexpr const char* kBoard = R"({"part": "maker:b:1.0", "name": "b", "connectors": [
    {"name": "J1", "displayName": "Slot", "type": "dimm", "compatible": ["J3", "gone", "J2", "J1", "U1"]},
    {"name": "J2", "type": "DIMM"}, {"name": "slot", "type": "DIMM", "compatible": ["J2"]},
    {"name": "J3", "type": "DIMM"}, {"name": "U1", "displayName": "Cage", "type": "QSFP", "compatible": ["J1"]}]})";
constexpr const char* kMetadata = R"({"vendor": "v", "boardId": "b", "name": "n", "hostInterface": "axi",
    "unifiedPlatform": "true", "board": {"boardPart": "maker:b:1.0"},
    "resources": [{"type": "DSP", "count": "7"}, {"type": "LUT", "count": "9"}]})";

class HTEQPlatformHelperTest : public testing::Test {
protected:
    HTEQPlatformHelperTest() {
        scratch.put("boards/any/board.json", kBoard);
        file = putPlatform(scratch, "r", "Card", kMetadata);
    }
    Scratch scratch;
    AppRoots roots{{scratch / "root"}};
    Capture capture;
    std::string file;
};

TEST_F(HTEQPlatformHelperTest, FindsThePlatform) {
    EXPECT_EQ(HTEQPlatformHelper("cARD", {scratch / "r"}, {}).getPlatformFile(), file);
    EXPECT_FALSE(HTEQPlatformHelper("card", {scratch / "none"}, {}).isValid());
    EXPECT_TRUE(HTEQPlatformHelper(file, {}, {}).isValid());
    putPlatform(scratch, "root/platforms", "card");  // a default repository
    EXPECT_FALSE(HTEQPlatformHelper("card", {scratch / "r"}, {}).isValid());
    EXPECT_TRUE(HTEQPlatformHelper("card", {}, {}).isValid());
    EXPECT_THAT(capture.lines(), IsEmpty());
    std::filesystem::remove(scratch / "r/hw/Card.lfa");
    EXPECT_FALSE(HTEQPlatformHelper(file, {}, {}).isValid());
    EXPECT_THAT(capture.lines(), ElementsAre(testing::StartsWith("@74-60")));
}

TEST_F(HTEQPlatformHelperTest, AnInvalidOneAnswersNothing) {
    HTEQPlatformHelper helper(nullptr);
    EXPECT_FALSE(helper.isValid() || helper.hasBootImg() || helper.isFixedPlatform() || helper.hasDimmConnectors());
    EXPECT_EQ(helper.getVendor() + helper.getMemSize() + helper.getFpgaPart() + helper.getDefaultSystemConfig(), "");
    EXPECT_EQ(helper.getNumComputeUnits() + helper.getMemoryIndex("DDR") + helper.getNumRuntimes(""), 0U);
    Strings out = {"before"};
    helper.setBoardRepoPaths({scratch / "boards"});
    helper.getCompatibleConnectors("Slot", out);
    helper.getCpuClockNames(out);
    helper.getRuntimes("", out);
    EXPECT_THAT(out, ElementsAre("before"));
}

TEST_F(HTEQPlatformHelperTest, CompatibleConnectors) {
    HTEQPlatformHelper helper(file, {}, {scratch / "boards"});
    const auto compatible = [&helper](const std::string& name) {
        Strings out;
        helper.getCompatibleConnectors(name, out);
        return out;
    };
    EXPECT_THAT(compatible("SLOT"), ElementsAre("J3", "J2", "J1"));  // the first that matches, by its display name
    EXPECT_THAT(compatible("J1"), ElementsAre("J3", "J2", "J1"));
    EXPECT_THAT(compatible("Cage"), IsEmpty());  // not a DIMM connector
    Strings paths;
    helper.getBoardRepoPaths(paths);
    EXPECT_THAT(paths, ElementsAre(scratch / "boards"));
    helper.clearBoardRepoPaths();
    EXPECT_THAT(compatible("J1"), IsEmpty());
}

}  // namespace
