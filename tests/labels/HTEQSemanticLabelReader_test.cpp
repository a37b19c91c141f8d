#include "platform/HTEQSemanticLabelReader.h"

#include <gmock/gmock.h>

#include <boost/property_tree/json_parser.hpp>
#include <sstream>

#include "json/JsonText.h"
#include "kit/Capture.h"
#include "kit/Cases.h"
#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"

namespace {

using testing::ElementsAre;

/// Without line ends and indentation.
std::string oneLine(const std::string& document) {
    std::string text;
    for (const std::string& line : HSTStringUtils::split(document, '\n')) text += HSTStringUtils::trim(line);
    return text;
}

std::string made(const std::string& what, const HTEQSemanticLabelReader& reader) {
    std::ostringstream out;
    if (what == "partition") reader.generatePartitionMetadata(out);
    if (what.starts_with("ext ")) reader.generateExtMetadata(what.substr(4), out);
    teq_platform::JSONObjectWriter writer;
    reader.toJSON(writer);
    return oneLine(what == "labels" ? json::write(writer.getTree()) : out.str());
}

}  // namespace

TEST(SemanticLabels, Documents) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/labels/labels.case", [](const auto& name, const auto& text) {
        const Capture capture;
        json::ptree root;
        json::parse(text, "labels", root);
        HTEQSemanticLabelReader reader;
        reader.parseRoot(root);
        if (name != "messages") return made(name.substr(0, name.find(':')), reader);
        return HSTStringUtils::join(capture.lines(), " ");
    });
}

TEST(SemanticLabels, Files) {
    const Scratch scratch;
    const Capture capture;
    HTEQSemanticLabelReader reader;
    EXPECT_TRUE(reader.parseFile(ZR_SOURCE_DIR "/examples/u77/hw/labels.json"));
    reader.generatePartitionMetadata(scratch / "partition.json");
    reader.generateExtMetadata("/dynamic", scratch / "ext.json");
    for (const std::string name : {"partition.json", "ext.json"})
        EXPECT_EQ(contentOf(scratch / name), contentOf(ZR_SOURCE_DIR "/examples/expected/u77." + name));
    EXPECT_EQ(reader.getCpuEndpoints().at(0).getCpuType(), "soft_core");

    EXPECT_FALSE(reader.parseFile(scratch / "none"));
    EXPECT_TRUE(reader.getUuids().empty());
    EXPECT_FALSE(reader.parseFile(scratch.put("bad", "{")));
    EXPECT_FALSE(reader.parseFile(scratch.str()));
    const std::string unread = "@74-86@%s%s: " + scratch.str();
    EXPECT_THAT(capture.lines(), ElementsAre("@74-87@%s: " + scratch / "none", unread + "/bad", unread));
    EXPECT_THROW(reader.generatePartitionMetadata(scratch / "no/such"), HEXUserException);
    std::ostream closed(nullptr);
    EXPECT_THROW(reader.generatePartitionMetadata(closed), boost::property_tree::json_parser_error);
}

TEST(SemanticLabels, ManyOfOneKind) {
    constexpr std::size_t kCount = 100'000;
    json::ptree root, uuid;
    for (const char* key : {"uuid_type", "uuid_design_component", "uuid"})
        uuid.push_back({key, json::ptree("interface")});
    for (std::size_t i = 0; i < kCount; ++i) root.push_back({"uuid", uuid});
    HTEQSemanticLabelReader reader;
    reader.parseRoot(root);
    json::ptree metadata;
    reader.generatePartitionMetadata(metadata);
    EXPECT_EQ(metadata.get_child("partition_metadata.interfaces").size(), kCount);
}
