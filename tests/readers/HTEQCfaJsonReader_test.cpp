#include "platform/HTEQCfaJsonReader.h"

#include <gtest/gtest.h>

#include <boost/property_tree/json_parser/error.hpp>
#include <memory>

#include "kit/Hpfm.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "platform/JSONObjectWriter.h"
#include "readers/Archive.h"

TEST(CfaJsonReader, FileTypesAreReadInAnyLetterCase) {
    const Scratch scratch;
    const std::string archive = archived(
        scratch, "p.lfa",
        {{"lfa.json", R"({"files": [{"type": "hpfm", "name": "a.hpfm"}, {"type": "Emu_Json", "name": "emu.json"}]})"},
         {"a.hpfm", hpfm("<kp:busInterface kp:name='b'/>")},
         {"emu.json", R"({"emulations": [{"files": [{"type": "EMU_HPFM", "name": "n"}]}]})"}});
    HPLPlatform platform;
    ASSERT_TRUE(HTEQCfaJsonReader(&platform).parseCFA(archive, HTEQCfaJsonReader::HwMetadataMode::Default));
    EXPECT_TRUE(platform.supportsHWEmulation());
    const std::unique_ptr<HSTFwdIter<HTEQHardwareBusInterface*>> interfaces(platform.createBusInterfaceIter());
    EXPECT_TRUE(interfaces->hasNext());
}

/// A host may use the classes without a request.
TEST(CfaJsonReader, BoundsWhatItMakes) {
    std::string levels, parameters = R"("p": "1")";
    for (int i = 0; i < 60; ++i) levels += ".a";
    for (int i = 0; i < 10'000; ++i) parameters += ",\"" + std::to_string(i) + levels + "\": \"1\"";
    HPLPlatform deep;
    HTEQCfaJsonReader(&deep).parseJsonString(
        R"({"designIpInstances": [{"vlnv": "v", "instance": "i", "configuration": {)" + parameters + "}}]}");
    teq_platform::JSONObjectWriter writer;
    EXPECT_THROW(deep.toJSON(writer), HEXFileFault);

    std::string roms = "{}";
    for (int i = 0; i < 500'000; ++i) roms += ",{}";
    const std::string text = R"({"featureRoms": [)" + roms + "]}";
    const Scratch scratch;
    HPLPlatform platform;
    HTEQCfaJsonReader reader(&platform);
    EXPECT_THROW(reader.parseJsonString(text), boost::property_tree::json_parser::json_parser_error);
    EXPECT_THROW(reader.parseFile(scratch.put("x.json", text)), boost::property_tree::json_parser::json_parser_error);
    EXPECT_FALSE(reader.parseCFA(archived(scratch, "x.lfa", {{"lfa.json", text}}),
                                 HTEQCfaJsonReader::HwMetadataMode::Default));
}
