#include "platform/HTEQEmulationJsonReader.h"

#include <gtest/gtest.h>

#include <boost/property_tree/json_parser.hpp>

#include "msg/HEXAll.h"
#include "platform/HTEQEmulations.h"
#include "readers/Capture.h"

TEST(HTEQEmulationJsonReader, FillsTheModel) {
    const Scratch scratch;
    const std::string file = scratch.put("hw_emu.json", R"({
        "pfm_metadata_version": "2.1",
        "emulations": [
            {"name": "a", "files": [{"type": "t", "name": "n", "inst_path": "i"}, {"type": "u", "name": "m"}]},
            {"files": []}
        ]
    })");
    HTEQEmulations emulations;
    HTEQEmulationJsonReader reader(file, &emulations);
    EXPECT_TRUE(reader.isJsonValid());
    EXPECT_TRUE(emulations.getEmulations().empty());
    reader.parseJson();
    EXPECT_EQ(emulations.getPfmMetadataVersion(), "2.1");
    ASSERT_EQ(emulations.getEmulations().size(), 2U);
    const auto& files = emulations.getEmulations()[0]->getFiles();
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0]->getType(), "t");
    EXPECT_EQ(files[0]->getName(), "n");
    EXPECT_EQ(files[0]->getInstPath(), "i");
    EXPECT_EQ(files[1]->getInstPath(), "");
    EXPECT_EQ(emulations.getEmulations()[1]->getName(), "");
}

TEST(HTEQEmulationJsonReader, MissingKeys) {
    const Scratch scratch;
    for (const char* text :
         {"{}", R"({"emulations": [{"name": "a"}]})", R"({"emulations": [{"files": [{"name": "n"}]}]})",
          R"({"emulations": [{"files": [{"type": "t"}]}]})"}) {
        SCOPED_TRACE(text);
        HTEQEmulations emulations;
        HTEQEmulationJsonReader reader(scratch.put("hw_emu.json", text), &emulations);
        EXPECT_EQ(reader.isJsonValid(), std::string(text) != "{}");
        EXPECT_THROW(reader.parseJson(), boost::property_tree::ptree_bad_path);
        EXPECT_EQ(emulations.getPfmMetadataVersion(), "");
    }
}

TEST(HTEQEmulationJsonReader, RefusesWhatItCannotRead) {
    const Scratch scratch;
    HTEQEmulations emulations;
    EXPECT_THROW(HTEQEmulationJsonReader(scratch.path("none"), &emulations), HEXFileNotFoundException);
    for (const std::string& file : {scratch.put("broken.json", "{\"emulations\": ["), scratch.path("")}) {
        SCOPED_TRACE(file);
        const HTEQEmulationJsonReader reader(file, &emulations);
        EXPECT_THROW(reader.isJsonValid(), boost::property_tree::json_parser_error);
    }
}
