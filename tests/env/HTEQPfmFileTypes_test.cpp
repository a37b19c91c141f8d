#include "platform/HTEQPfmFileTypes.h"

#include <gtest/gtest.h>

using Types = HTEQPfmFileTypes;

TEST(HTEQPfmFileTypes, NumbersAndTexts) {
    static constexpr struct {
        const char* text;
        int number, tclNumber;
    } cases[] = {
        {"DCP", 0, 28},
        {"dcp", 0, 28},
        {"HPFM", 17, 28},
        {"BOARD_REPO_PATH", 23, 28},
        {"EXT_META_JSON", 26, 28},
        {"TILPRJ", 32, 28},
        {"ISS", 40, 28},
        {"LINK_RUNTIME", 42, 28},
        {"PRE_SYS_LINK_TCL", 43, 0},
        {"pre_Route_Tcl", 63, 20},
        {"IMPL_CONSTRS", 70, 27},
        {"", 71, 28},
        {"DCP ", 71, 28},
        {"UNKNOWN", 71, 28},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(static_cast<int>(Types::toFileType(c.text)), c.number);
        EXPECT_EQ(static_cast<int>(Types::toTclFileType(c.text)), c.tclNumber);
    }
    EXPECT_EQ(Types::toString(Types::FileType(71)), "");
    EXPECT_EQ(Types::toString(Types::FileType(-1)), "");
    EXPECT_EQ(Types::toString(Types::TclFileType(28)), "");
}

TEST(HTEQPfmFileTypes, MapsAgreeWithTheLookUps) {
    const auto types = Types::getFileTypeMap();
    ASSERT_EQ(types.size(), 71U);
    for (const auto& [type, text] : types) {
        EXPECT_EQ(Types::toString(type), text);
        EXPECT_EQ(Types::toFileType(text), type);
    }
    const auto hooks = Types::getTclFileTypeMap();
    ASSERT_EQ(hooks.size(), 28U);
    for (const auto& [hook, text] : hooks) {
        EXPECT_EQ(Types::toString(hook), text);
        EXPECT_EQ(Types::toTclFileType(text), hook);
    }
}
