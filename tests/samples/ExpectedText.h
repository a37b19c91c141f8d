#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "kit/Run.h"

/// Compares a text with a file of examples/expected, line by line.
inline void expectText(const std::string& text, const std::string& expected) {
    const std::string path = std::string(ZR_SOURCE_DIR "/examples/expected/") + expected;
    if (std::getenv("ZR_UPDATE_EXPECTED")) std::ofstream(path, std::ios::binary) << text;
    std::istringstream is(text), ought(contentOf(path));
    std::string isLine, oughtLine;
    for (int line = 1; is || ought; ++line) {
        isLine = oughtLine = "(end)";
        std::getline(is, isLine);
        std::getline(ought, oughtLine);
        ASSERT_EQ(isLine, oughtLine) << expected << ":" << line;
    }
    EXPECT_EQ(text, contentOf(path)) << expected;
}
