#include "text/HSTStringUtils.h"

#include <gtest/gtest.h>

#include <map>

#include "kit/Cases.h"

namespace {

using U = HSTStringUtils;

std::string parts(const std::string& text) {
    std::string result;
    for (const std::string& part : U::split(text, ',')) result += "(" + part + ")";
    return result;
}

TEST(HSTStringUtils, Functions) {
    const std::map<std::string, std::string (*)(const std::string&)> functions = {
        {"toNumber", [](const std::string& text) { return std::to_string(U::toNumber(text)); }},
        {"utf8Length", [](const std::string& text) { return std::to_string(U::utf8Length(text)); }},
        {"toUpper", [](const std::string& text) { return std::string(U::toUpper(text)); }},
        {"split", parts},
        {"printable", [](const std::string& text) { return U::printable(text); }},
        {"printableJson", [](const std::string& text) { return U::printableJson(text); }},
        {"printableXml", [](const std::string& text) { return U::printableXml(text); }},
        {"trim", [](const std::string& text) { return std::string(U::trim(text)); }},
    };
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/text/functions.case", [&](const auto& name, const auto& text) {
        return functions.at(name.substr(0, name.find_first_of(", ")))(text);
    });
    EXPECT_EQ(U::join({"a", "", "b"}, ", "), "a, , b");
    EXPECT_TRUE(U::iequals("AbZ", "aBz"));
    EXPECT_FALSE(U::iequals("a", "ab"));
    EXPECT_FALSE(U::iequals("[", "{")) << "32 apart, and no letters";
    EXPECT_FALSE(U::iequals("\xC3\x89", "\xC3\xA9")) << "bytes above 127 have no case here";
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
