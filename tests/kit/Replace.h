#pragma once
#include <gtest/gtest.h>

#include <string>

/// `text` with the first `part` replaced, which must be there.
inline std::string with(std::string text, const std::string& part, const std::string& replacement) {
    const auto at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return at == std::string::npos ? text : text.replace(at, part.size(), replacement);
}

/// `text` with each `part` replaced.
inline std::string replaced(std::string text, const std::string& part, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += by.size())
        text.replace(at, part.size(), by);
    return text;
}
