#include "platform/HTEQPlatformCAPI.h"

#include <gtest/gtest.h>

#include <boost/property_tree/json_parser.hpp>

#include <iostream>
#include <sstream>
#include <stdexcept>

#include "kit/Platforms.h"
#include "msg/HEXAll.h"
#include "platform/PlatformParseException.h"

namespace {

TEST(CApi, GivesDocumentsAndNullAndLetsExceptionsPass) {
    const Scratch scratch;
    const Messages messages;
    std::ostringstream printed;
    std::streambuf* const before = std::cout.rdbuf(printed.rdbuf());
    const std::string archive = packed(scratch, "h.lfa", {{"lfa.json", "{\"name\": \"n\"}"}});

    char* text = hteq_get_short_platform_json(archive.c_str());
    std::string escaped = archive;
    for (std::size_t at = 0; (at = escaped.find('/', at)) != std::string::npos; at += 2) escaped.insert(at, "\\");
    EXPECT_EQ(std::string(text),
              "{\n    \"uniqueName\": \"" + escaped + "\",\n    \"file\": \"" + escaped + "\"\n}\n");
    hteq_free_json_string(text);
    hteq_free_json_string(nullptr);

    EXPECT_EQ(hteq_get_platform_json((scratch / "gone.lfa").c_str()), nullptr);
    EXPECT_EQ(hteq_get_short_platform_json(""), nullptr);
    EXPECT_THROW(hteq_get_platform_json((scratch / "gone.zdf").c_str()), HEXFileNotFoundException);
    EXPECT_THROW(hteq_get_platform_json(scratch.put("bad.zdf", "<a/>").c_str()),
                 teq_platform::PlatformParseException);
    EXPECT_THROW(hteq_get_platform_json(nullptr), std::logic_error);
    std::cout.rdbuf(before);
    const std::string words = "Error parsing platform file: " + (scratch / "bad.zdf") + "\nLine number:1. ";
    EXPECT_TRUE(printed.str().starts_with(words)) << printed.str();
    EXPECT_TRUE(printed.str().ends_with("(column 1)\n")) << printed.str();
}

TEST(CApi, InvalidExtensionMetadataLeavesAsTheParsersException) {
    const Scratch scratch;
    const std::string archive = packed(
        scratch, "h.lfa",
        {{"lfa.json", R"({"files": [{"name": "e.json", "type": "EXT_META_JSON"}]})"}, {"e.json", "{\"a\": }"}});
    try {
        hteq_get_platform_json(archive.c_str());
        FAIL() << "no exception";
    } catch (const boost::property_tree::json_parser_error& e) {
        EXPECT_NE(std::string(e.what()).find("e.json"), std::string::npos) << e.what();
    }
}

}  // namespace
