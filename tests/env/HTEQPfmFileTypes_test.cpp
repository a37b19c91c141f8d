#include "platform/HTEQPfmFileTypes.h"

#include <gtest/gtest.h>

using Types = HTEQPfmFileTypes;

TEST(HTEQPfmFileTypes, TextsOfNumbersThatAreNone) {
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
