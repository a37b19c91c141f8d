#include "json/JsonPlaces.h"

#include <gtest/gtest.h>

#include "json/JsonText.h"

namespace {

using json::ptree;

/// The values of a tree as the text has them.
void collect(const ptree& node, std::vector<const ptree*>& values) {
    values.push_back(&node);
    for (const auto& [key, child] : node) collect(child, values);
}

}  // namespace

TEST(JsonPlaces, NumbersTheValuesOfATreeAsTheyStandInTheText) {
    const std::string text =
        "\xEF\xBB\xBF{\"a:\\\"b\" : \"x: [1], {\\\\\",\n \"c\": [1 ,-2.5e3,[ ] , {}],\"\": true, \"a:\\\"b\": null,\n"
        "\t\"\xC3\xA4\": {\"d\": {\"e\": \"\"}}, \"f\"\n:\nfalse}";
    ptree tree;
    json::parse(text, "t", tree);
    std::vector<const ptree*> values;
    collect(tree, values);
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; i < values.size(); ++i) numbers.push_back(i);
    const std::vector<json::TextPlace> places = json::placesOf(text, numbers);
    const std::pair<unsigned, unsigned> expected[] = {{1, 2},  {1, 13}, {2, 7}, {2, 8},  {2, 11}, {2, 18}, {2, 24},
                                                      {2, 32}, {2, 47}, {3, 7}, {3, 13}, {3, 19}, {5, 1}};
    ASSERT_EQ(places.size(), values.size());
    ASSERT_EQ(values.size(), std::size(expected));
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(places[i].line, expected[i].first) << i;
        EXPECT_EQ(places[i].column, expected[i].second) << i;
    }
}

TEST(JsonPlaces, GivesTheValuesThatAreAskedFor) {
    const std::size_t numbers[] = {1, 1, 3};
    const auto places = json::placesOf("[10,\n20, 30]", numbers);
    ASSERT_EQ(places.size(), 3U);
    EXPECT_EQ(places[0].column, 2U);
    EXPECT_EQ(places[1].column, 2U);
    EXPECT_EQ(places[2].line, 2U);
    EXPECT_EQ(places[2].column, 5U);
    EXPECT_TRUE(json::placesOf("[]", std::vector<std::size_t>{1}).empty());
}
