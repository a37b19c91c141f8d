#include "text/HSTStringUtils.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using U = HSTStringUtils;

TEST(HSTStringUtils, ReadsNumbersAsTheCLibraryDoes) {
    const struct {
        const char* text;
        long long value;
    } cases[] = {
        {"", 0},
        {"12", 12},
        {" \t-7x", -7},
        {"+8", 8},
        {"- 8", 0},
        {"0x10", 0},
        {"abc", 0},
        {"9223372036854775807", std::numeric_limits<long long>::max()},
        {"9223372036854775808", std::numeric_limits<long long>::max()},
        {"-9223372036854775808", std::numeric_limits<long long>::min()},
        {"-99999999999999999999", std::numeric_limits<long long>::min()},
    };
    for (const auto& c : cases) EXPECT_EQ(U::toNumber(c.text), c.value) << c.text;
}

TEST(HSTStringUtils, KnowsTwentySixLetters) {
    EXPECT_TRUE(U::iequals("AbZ", "aBz"));
    EXPECT_FALSE(U::iequals("a", "ab"));
    EXPECT_FALSE(U::iequals("[", "{")) << "32 apart, and no letters";
    EXPECT_FALSE(U::iequals("\xC3\x89", "\xC3\xA9")) << "bytes above 127 have no case here";
    EXPECT_EQ(U::toUpper("a\xC3\xA9z"), "A\xC3\xA9Z");
}

TEST(HSTStringUtils, SplitsAndJoins) {
    using V = std::vector<std::string>;
    EXPECT_EQ(U::split("", ','), V({""}));
    EXPECT_EQ(U::split("a,,b,", ','), V({"a", "", "b", ""}));
    EXPECT_EQ(U::join({"a", "", "b"}, ", "), "a, , b");
    EXPECT_EQ(U::trim(" \n a b\t"), "a b");
    EXPECT_EQ(U::trim(" \n "), "");
}

TEST(HSTStringUtils, MeasuresUtf8) {
    const struct {
        const char* text;
        std::size_t length;
    } cases[] = {
        {"a", 1},
        {"\xC3\xA9", 2},
        {"\xE2\x82\xAC", 3},
        {"\xF0\x9F\x98\x80", 4},
        {"", 0},
        {"\x80", 0},
        {"\xC0\x80", 0},          // overlong
        {"\xE0\x80\x80", 0},      // overlong
        {"\xED\xA0\x80", 0},      // surrogate
        {"\xF4\x90\x80\x80", 0},  // beyond the last character
        {"\xE2\x82", 0},          // cut
        {"\xE2\x28\xA1", 0},
    };
    for (const auto& c : cases) EXPECT_EQ(U::utf8Length(c.text), c.length) << ::testing::PrintToString(c.text);
}

TEST(HSTStringUtils, CutsBetweenCharacters) {
    const struct {
        const char *text, *prefix;  // of at most 4 bytes
    } cases[] = {
        {"abcd", "abcd"},
        {"abcdef", "abcd"},
        {"abc\xC3\xA9", "abc"},
        {"ab\xC3\xA9z", "ab\xC3\xA9"},
        {"a\xF0\x9F\x98\x80", "a"},
        {"\xF0\x9F\x98\x80z", "\xF0\x9F\x98\x80"},
        {"\x80\x80\x80\x80\x80", "\x80\x80\x80\x80"},  // not UTF-8
    };
    for (const auto& c : cases) EXPECT_EQ(U::utf8Prefix(c.text, 4), c.prefix) << ::testing::PrintToString(c.text);
    EXPECT_EQ(U::utf8Prefix("\xF0\x9F\x98\x80", 2), "");
}

}  // namespace
