#include "zip/MemberName.h"

#include <gtest/gtest.h>

#include <string>

#include "kit/Cases.h"

using zip::digestNameFault;
using zip::memberNameFault;

TEST(MemberName, WhatMayBeWrittenBelowADirectory) {
    // The text that identifies each fault.
    const char* const kinds[] = {"empty part", "empty", "absolute", "drive",  "backslash", "control", "UTF-8",
                                 "255",        "1024",  "'.'",      "number", "blanks",    "'..'",    "combining"};
    cases::expectTexts(
        ZR_SOURCE_DIR "/tests/cases/zip/names.case", [&](const std::string& place, const std::string& name) {
            const std::string_view fault = (place == "names" ? memberNameFault : digestNameFault)(name, false);
            for (const char* const kind : kinds)
                if (fault.find(kind) != std::string_view::npos) return std::string(kind);
            return fault.empty() ? std::string("good") : std::string(fault);
        });
    EXPECT_EQ(memberNameFault("file", true), "");
    EXPECT_NE(memberNameFault("dir/", true), "");
}
