#include "json/JsonText.h"

#include <gtest/gtest.h>

#include <boost/property_tree/json_parser.hpp>
#include <random>
#include <sstream>

#include "kit/Cases.h"
#include "kit/Files.h"

namespace {

using json::ptree;

ptree parsed(std::string_view text, const json::Limits& limits = json::kUntrusted) {
    ptree tree;
    json::parse(text, "t.json", tree, limits);
    return tree;
}

std::string refusal(std::string_view text) {
    try {
        parsed(text);
    } catch (const boost::property_tree::json_parser::json_parser_error& e) {
        return e.what();
    }
    return "accepted";
}

std::string byTheTreesOwnWriter(const ptree& tree) {
    std::ostringstream out;
    boost::property_tree::write_json(out, tree, true);
    return out.str();
}

TEST(JsonText, ReadsWhatStandsInTheText) {
    const ptree tree = parsed(
        "\xEF\xBB\xBF {\"n\": -1.50e+3, \"t\": true, \"z\": null, \"e\": {}, \"l\": [1, [\"x\"]],"
        " \"a.b\": \"\\u00e9\\n\", \"n\": 2} \n");
    EXPECT_EQ(tree.get<std::string>("n"), "-1.50e+3");
    EXPECT_EQ(tree.get<std::string>("t"), "true");
    EXPECT_EQ(tree.get<std::string>("z"), "null");
    EXPECT_EQ(tree.get<std::string>("e"), "");
    EXPECT_EQ(tree.get_child("l").front().second.data(), "1");
    EXPECT_EQ(tree.get_child("l").back().second.front().second.data(), "x");
    EXPECT_EQ(tree.find("a.b")->second.data(), "\xC3\xA9\n");
    EXPECT_EQ(tree.count("n"), 2U);
    EXPECT_EQ(tree.back().second.data(), "2");
    const std::string digits(10'000, '7');
    EXPECT_EQ(parsed("[" + digits + "]").front().second.data(), digits);
}

TEST(JsonText, RefusesAndTellsTheLine) {
    for (const cases::Case& each : cases::read(ZR_SOURCE_DIR "/tests/cases/json/texts.case")) {
        const std::string text = cases::plain(each.lines[0].text), said = refusal(text);
        SCOPED_TRACE(text.substr(0, 40));
        const cases::Line& ought = each.lines[1];
        EXPECT_NE(said.find(ought.text), std::string::npos) << said;
        EXPECT_NE(said.find(ought.word == "accepted" ? "accepted" : "t.json" + ought.word), std::string::npos)
            << said;
    }
    EXPECT_NO_THROW(parsed(repeated("[", 256) + repeated("]", 256), json::kOwn));
}

TEST(JsonText, ARefusedTextLeavesTheTree) {
    ptree tree;
    tree.put("kept", "1");
    EXPECT_THROW(json::parse("{\"a\": ", "t.json", tree), boost::property_tree::json_parser::json_parser_error);
    EXPECT_EQ(tree.get<std::string>("kept"), "1");
    EXPECT_EQ(tree.size(), 1U);
}

/// Random trees: all bytes that are characters, some others, empty keys, lists, containers that mix both.
void grow(ptree& node, int depth, std::mt19937& random) {
    const auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const bool list = pick(2) == 0;
    for (int i = pick(4); i >= 0; --i) {
        std::string text;
        for (int k = pick(6); k > 0; --k)
            text += pick(9) == 0 ? "\xE2\x82\xAC" : std::string(1, static_cast<char>(pick(128)));
        ptree& child = node.push_back({list || pick(9) == 0 ? "" : text, ptree()})->second;
        if (depth > 0 && pick(2) == 0)
            grow(child, depth - 1, random);
        else
            child.data() = text;
    }
}

TEST(JsonText, WritesTheBytesOfTheTreesOwnWriter) {
    std::mt19937 random(1);
    for (int i = 0; i < 500; ++i) {
        ptree tree;
        grow(tree, 5, random);
        ASSERT_EQ(json::write(tree), byTheTreesOwnWriter(tree)) << "tree " << i;
    }
    EXPECT_EQ(json::write(ptree()), "{\n}\n");
    ptree path;
    path.put("f\xFF", "a\xC3\xA9\xE2\x82/");
    EXPECT_EQ(json::write(path), "{\n    \"f\xEF\xBF\xBD\": \"a\xC3\xA9\xEF\xBF\xBD\xEF\xBF\xBD\\/\"\n}\n")
        << "not UTF-8";
}

TEST(JsonText, RefusesToWriteAValueBesideChildren) {
    ptree both, root("value");
    both.put("a", "1");
    both.put("a.b", "2");
    for (const ptree& tree : {both, root})
        EXPECT_THROW(byTheTreesOwnWriter(tree), boost::property_tree::json_parser::json_parser_error);
    EXPECT_THROW(json::write(root), boost::property_tree::json_parser::json_parser_error);
    try {
        json::write(both);
        FAIL();
    } catch (const boost::property_tree::json_parser::json_parser_error& e) {
        EXPECT_NE(std::string(e.what()).find("\"a\""), std::string::npos) << e.what();
    }
}

}  // namespace
