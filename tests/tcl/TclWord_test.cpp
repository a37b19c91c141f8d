#include "tcl/TclWord.h"

#include <gtest/gtest.h>

#include "kit/Cases.h"

TEST(TclWord, IsAsGivenOrQuoted) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/tcl/word.case", [](const std::string&, const std::string& text) {
        return tcl::word(text, tcl::Form::bare) + " " + tcl::word(text, tcl::Form::quoted) + " " +
               tcl::word(text, tcl::Form::braced);
    });
    EXPECT_EQ(tcl::word(tcl::Text{"[a $b", true}, tcl::Form::quoted), "\"[a $b\"");
    EXPECT_EQ(tcl::namePart("DDR[0]\xC3\xA9::a"), "DDR_0_____a");
}
