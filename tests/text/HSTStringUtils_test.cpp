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

}  // namespace
