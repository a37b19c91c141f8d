#include "hardware/MemorySize.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(MemorySize, Gigabytes) {
    const struct {
        const char* text;
        int gigabytes;
    } kCases[] = {
        {"16GB", 16},      {"16 GB", 16}, {"2048MB", 0}, {"1TB", 0},   {"", 0},       {"GB", 0},       {"GB16", 0},
        {"8GB of DDR", 8}, {"8GB4GB", 8},  // up to the last unit of the line
        {"8 x 2GB", 8},    {"16gb", 0},   {" 4GB", 4},   {"-4GB", -4}, {"8\n4GB", 8}, {"4GB\n8GB", 4}, {"012GB", 12},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(hardware::gigabytesOf(c.text), c.gigabytes);
    }
}

TEST(MemorySize, NotANumber) {
    try {
        hardware::gigabytesOf("x4GB");
        FAIL() << "not refused";
    } catch (const std::invalid_argument& e) {
        EXPECT_STREQ(e.what(), "stoi");
    }
    EXPECT_THROW(hardware::gigabytesOf("99999999999GB"), std::out_of_range);
}

TEST(MemorySize, LongTextsAreNoTrouble) {
    const std::string blanks(2'000'000, ' ');
    EXPECT_EQ(hardware::gigabytesOf("7" + blanks + "GB"), 7);
    EXPECT_EQ(hardware::gigabytesOf("7" + blanks), 0);
}
