#include "platform/HTEQEmulationExtMetaJsonReader.h"

#include <gtest/gtest.h>

#include <boost/property_tree/json_parser.hpp>

#include "platform/HTEQEmulations.h"
#include "readers/Capture.h"

TEST(HTEQEmulationExtMetaJsonReader, TheLastValueOfEachKeyStands) {
    const Scratch scratch;
    const std::string file = scratch.put("ext.json", R"({"featureRoms": [
        {"vbnvName": "v1", "cdmaBaseAddress0": "a0", "cdmaBaseAddress1": "a1", "cdmaBaseAddress2": "a2",
         "featureBitMap": [{"value": "1", "boardScheduler": "enabled"}, {"peerToPeer": "enabled"}]},
        {"vbnvName": "v2", "cdmaBaseAddress3": "a3", "featureBitMap": [{"value": "2", "unifiedPlatform": "x"}]}
    ]})");
    HTEQEmulations emulations;
    HTEQEmulationExtMetaJsonReader reader(file, &emulations);
    EXPECT_TRUE(reader.isJsonValid());
    reader.parseJson();
    ASSERT_EQ(emulations.getFeatureRoms().size(), 1U);
    const HTEQEmuFeatureRom& rom = *emulations.getFeatureRoms()[0];
    EXPECT_EQ(rom.getVBNV(), "v2");
    EXPECT_EQ(rom.getCdmaBaseAddress0(), "a0");
    EXPECT_EQ(rom.getCdmaBaseAddress1(), "a1");
    EXPECT_EQ(rom.getCdmaBaseAddress2(), "a2");
    EXPECT_EQ(rom.getCdmaBaseAddress3(), "a3");
    EXPECT_EQ(rom.getBitMapValue(), "2");
    EXPECT_EQ(rom.getBitMapUnifiedPlatform(), "");
    EXPECT_EQ(rom.getFeatureBitMap(), 0x10009U);
}

TEST(HTEQEmulationExtMetaJsonReader, MissingKeys) {
    const Scratch scratch;
    for (const char* text : {"{}", R"({"featureRoms": [{"vbnvName": "v"}]})"}) {
        SCOPED_TRACE(text);
        HTEQEmulations emulations;
        HTEQEmulationExtMetaJsonReader reader(scratch.put("ext.json", text), &emulations);
        EXPECT_TRUE(reader.isJsonValid());
        EXPECT_THROW(reader.parseJson(), boost::property_tree::ptree_bad_path);
    }
}
