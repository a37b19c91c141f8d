#include "util/HUTConvert.h"

#include <gtest/gtest.h>

#include <cstdint>

TEST(HUTConvert, HexOfNumber) {
    static constexpr struct {
        std::uint64_t value;
        std::size_t bytes;
        const char *digits, *trimmed;
    } cases[] = {
        {0x1A, 1, "1a", "1a"},
        {0x0102, 2, "0102", "102"},
        {0xFEDCBA9876543210, 8, "fedcba9876543210", "fedcba9876543210"},
        {0x10, 4, "00000010", "10"},
        {0, 4, "00000000", ""},
        {0, 0, "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.digits);
        std::string text = "old";
        HUTConvert::dataToHexLittleEndian(&c.value, c.bytes, text);
        EXPECT_EQ(text, c.digits);
        EXPECT_EQ(HUTConvert::trimLeading(text, '0'), c.trimmed);
    }
}
