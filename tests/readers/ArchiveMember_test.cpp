#include "readers/ArchiveMember.h"

#include <gtest/gtest.h>

TEST(ArchiveMember, WithoutLeadingDot) {
    const struct {
        const char *member, *name;
    } cases[] = {
        {"./hw_emu.xml", "hw_emu.xml"},
        {".//hw_emu/a.xml", "hw_emu/a.xml"},
        {"hw_emu/a.xml", "hw_emu/a.xml"},
        {"a/b.xml", "b.xml"},  // any one character counts as the dot
        {"./", ""},
        {"/a", "/a"},
        {".", "."},
        {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(readers::withoutLeadingDot(c.member), c.name) << c.member;
}
