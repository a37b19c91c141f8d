// Scanners that replace a regular expression give the same result as the expression.
#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "hardware/MemorySize.h"
#include "readers/ArchiveMember.h"

namespace {

/// Every text of up to `most` of the pieces.
void forEachText(const std::vector<std::string>& pieces, int most, const std::function<void(const std::string&)>& use,
                 const std::string& begin = "") {
    use(begin);
    if (most == 0) return;
    for (const std::string& piece : pieces) forEachText(pieces, most - 1, use, begin + piece);
}

}  // namespace

TEST(HostileTexts, SizesInGigabytes) {
    static const std::regex form("([0-9]+).*GB");
    int matched = 0;
    forEachText({"0", "17", "G", "B", "GB", " ", "\n", "\r"}, 5, [&](const std::string& text) {
        const std::string replaced = std::regex_replace(text, form, "$1");
        matched += replaced != text;
        const std::string number = replaced.empty() || replaced == text ? "0" : replaced;
        std::string expected = "throws", found = "throws";
        try {
            expected = std::to_string(std::stoi(number));
        } catch (const std::logic_error&) {
        }
        try {
            found = std::to_string(hardware::gigabytesOf(text));
        } catch (const std::logic_error&) {
        }
        EXPECT_EQ(found, expected) << testing::PrintToString(text);
    });
    EXPECT_GT(matched, 1000);
}

TEST(HostileTexts, MembersWithoutLeadingDot) {
    static const std::regex form("^.[/]+(.*)$");
    int matched = 0;
    forEachText({".", "/", "a", "\n", "\r", "\xC3\xBC"}, 6, [&](const std::string& text) {
        const std::string expected = std::regex_replace(text, form, "$1");
        matched += expected != text;
        EXPECT_EQ(std::string(readers::withoutLeadingDot(text)), expected) << testing::PrintToString(text);
    });
    EXPECT_GT(matched, 1000);
}

/// The matcher that these replace recurses once for each character.
TEST(HostileTexts, LongOnes) {
    const std::string dots = "./" + std::string(1'000'000, 'a');
    EXPECT_EQ(readers::withoutLeadingDot(dots).size(), 1'000'000U);
    EXPECT_EQ(hardware::gigabytesOf("16" + std::string(1'000'000, ' ') + "GB"), 16);
}
