#include "zip/MemberName.h"

#include <gtest/gtest.h>

#include <string>

using zip::memberNameFault;

TEST(MemberName, WhatMayBeWrittenBelowADirectory) {
    static const struct {
        std::string name;
        std::string_view fault;
    } cases[] = {
        {"lfa.json", ""},
        {"hw_emu/lfa.json", ""},
        {"a/b/", ""},
        {"...", ""},
        {"a..b/.c", ""},
        {"a:b", "drive"},
        {"1:b", ""},
        {"g\xC3\xA9n\xE2\x82\xAC\xF0\x9F\x98\x80", ""},
        {std::string(255, 'x'), ""},
        {"", "empty"},
        {"/etc/passwd", "absolute"},
        {"/", "absolute"},
        {"C:/x", "drive"},
        {"c:x", "drive"},
        {"..", "'..'"},
        {"../x", "'..'"},
        {"a/../../x", "'..'"},
        {"a/..", "'..'"},
        {"a/../", "'..'"},
        {"./a", "'.'"},
        {"a//b", "empty part"},
        {"a//", "empty part"},
        {"..\\x", "backslash"},
        {std::string("a\0b", 3), "control"},
        {"a\nb", "control"},
        {"\x1b[2J", "control"},
        {"a\x7f", "control"},
        {"\xC0\xAE\xC0\xAE/x", "UTF-8"},  // an overlong ".."
        {"\xE0\x80\xAF", "UTF-8"},
        {"\xF0\x80\x80\xAF", "UTF-8"},
        {"\xED\xA0\x80", "UTF-8"},  // half of a surrogate pair
        {"\xF4\x90\x80\x80", "UTF-8"},
        {"\xFF", "UTF-8"},
        {"a\xE2\x82", "UTF-8"},
        {"a\x80", "UTF-8"},
        {std::string(256, 'x'), "255"},
        {"a/" + std::string(256, 'x') + "/b", "255"},
        {std::string(1025, '/').replace(0, 1, "a"), "1024"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string_view fault = memberNameFault(c.name, false);
        EXPECT_EQ(fault.empty(), c.fault.empty()) << fault;
        EXPECT_NE(fault.find(c.fault), std::string_view::npos) << fault;
    }
    EXPECT_EQ(memberNameFault("file", true), "");
    EXPECT_NE(memberNameFault("dir/", true), "");
}
