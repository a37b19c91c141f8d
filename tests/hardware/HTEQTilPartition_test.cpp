#include "platform/HTEQTilPartition.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "kit/Files.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQTilPartitionsJsonReader.h"
#include "util/HUTEnv.h"

namespace {

std::string fileOf(const std::string& text) { return write(HUTEnv::getJUNTmpDir() + "/partitions_test.json", text); }

}  // namespace

TEST(TilPartition, ChildrenAreFoundByBothNumbers) {
    HTEQTilPartition root(0, 50);
    EXPECT_FALSE(root.findPartition(0, 10).isPartition());
    root.addPartition(0, 10).tilInst("first");
    root.addPartition(0, 10).tilInst("second");
    EXPECT_EQ(root.findPartition(0, 10).tilInst(), "first");
    EXPECT_EQ(&root.findPartition(10, 10), &root.findPartition(0, 50));  // none has both
    EXPECT_TRUE(root.hasPartition("second"));
    EXPECT_FALSE(root.hasPartition("Second"));
    HTEQTilPartition copy = root;
    EXPECT_EQ(copy, root);
    copy.partitions()[1].uuid("other");
    EXPECT_FALSE(copy == root);
    copy.clear();
    EXPECT_EQ(copy, HTEQTilPartition());
}

TEST(TilPartitionsJsonReader, RootsWithTheirChildren) {
    HPLPlatform platform;
    platform.parseTILPartitions(fileOf(R"({"TIL": {
        "til_0": {"startColumn": "0", "numColumns": "50", "uuid": "u", "til_pl_intf_id": "i", "tilInst": "ignored",
                  "partitions": {"x": {"startColumn": "5", "numColumns": "10", "partitions": {"y": {"numColumns": "1"}}},
                                 "no columns": {"startColumn": "1"}, "empty": {"numColumns": "0"}}},
        "skipped": {"startColumn": "0"},
        "til.1": {"numColumns": "0", "partitions": {"x": {"numColumns": "10"}}}}})"));
    HTEQTilPartition first(0, 50), second(0, 0);
    first.isRoot(true);
    first.tilInst("til_0");
    first.uuid("u");
    first.plIntefaceID("i");
    first.addPartition(5, 10).tilInst("til_0");
    first.addPartition(0, 0).tilInst("til_0");
    second.isRoot(true);
    second.tilInst("til.1");
    EXPECT_EQ(platform.getTilPartitions(), (HSTVector<HTEQTilPartition>{first, second}));
    EXPECT_TRUE(platform.hasTilPartition("til_0"));
    EXPECT_FALSE(platform.hasTilPartition("til.1"));  // a name of a root only
    EXPECT_EQ(platform.findTilPartition("til.1"), second);
    EXPECT_FALSE(platform.findTilPartition("skipped").isPartition());
}

TEST(TilPartitionsJsonReader, PartsThatRepeatALongNameAreLimited) {
    std::string parts = R"({"numColumns": "1"})";
    for (int i = 0; i < 11; ++i) parts += "," + parts;
    const auto read = [&parts](std::size_t size) {
        return HTEQTilPartitionsJsonReader::readText(
            "{\"TIL\": {\"" + std::string(size, 'n') + R"(": {"numColumns": "1", "partitions": [)" + parts + "]}}}",
            "");
    };
    EXPECT_EQ(read(1000)[0].partitions().size(), 2048U);
    EXPECT_THROW(read(60000), HEXFileFault);
}

TEST(TilPartitionsJsonReader, OtherShapesAreNoPartitions) {
    // What a reader expects at each level, replaced by what JSON has besides.
    for (const char* other : {"null", "true", "7", R"("text")", "[]", "{}", "[[], {}]", R"([{"a": [1]}])"}) {
        const std::string shape = other;
        for (const std::string& text : {shape, "{\"TIL\": " + shape + "}", "{\"TIL\": {\"a\": " + shape + "}}"}) {
            HPLPlatform platform;
            platform.parseTILPartitions(fileOf(text));
            EXPECT_FALSE(platform.hasTilPartitions()) << text;
        }
        HPLPlatform parts;
        parts.parseTILPartitions(fileOf(R"({"TIL": {"a": {"numColumns": "2", "partitions": )" + shape + "}}}"));
        ASSERT_EQ(parts.getTilPartitions().size(), 1U) << shape;
        EXPECT_FALSE(parts.getTilPartitions()[0].hasPartitions()) << shape;
    }
    for (const char* number : {"null", R"("text")", "{}", "[1, 2]"}) {
        HPLPlatform platform;
        platform.parseTILPartitions(
            fileOf(R"({"TIL": {"a": {"startColumn": "3", "numColumns": )" + std::string(number) + "}}}"));
        ASSERT_EQ(platform.getTilPartitions().size(), 1U) << number;
        EXPECT_EQ(platform.getTilPartitions()[0].startColumn(), 3) << number;
        EXPECT_EQ(platform.getTilPartitions()[0].numColumns(), 0) << number;
    }
}

TEST(TilPartitionsJsonReader, WhatIsNotThereAndWhatIsNoJson) {
    HPLPlatform platform;
    platform.parseTILPartitions(HUTEnv::getJUNTmpDir() + "/missing.json");
    platform.parseTILPartitions(HUTEnv::getJUNTmpDir());
    platform.parseTILPartitions(fileOf(R"({"til": {"a": {"numColumns": "1"}}})"));
    EXPECT_FALSE(platform.hasTilPartitions());
    for (const std::string& text :
         {std::string(R"({"TIL": {"a": {"numColumns": "1"}})"), std::string(), std::string(200'000, '[')}) {
        const std::string path = fileOf(text);
        EXPECT_EQ(refusalOf<HEXAlgException>([&] { platform.parseTILPartitions(path); }),
                  "An error occurred while parsing the til partitions json file: " + path);
    }
    EXPECT_FALSE(platform.hasTilPartitions());
}
