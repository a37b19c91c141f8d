#include "platform/HTEQEnv.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "env/ProductName.h"
#include "kit/Cases.h"
#include "platform/HTEQPfmFileTypes.h"

TEST(HTEQEnv, ProductsAndFileTypes) {
    using Types = HTEQPfmFileTypes;
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/env/functions.case",
                       [](const auto& name, const std::string& text) {
                           if (name.starts_with("product"))
                               return productNameOf(text, false) + " " + productNameOf(text, true);
                           return std::to_string(static_cast<int>(Types::toFileType(text))) + " " +
                                  std::to_string(static_cast<int>(Types::toTclFileType(text)));
                       });
}

TEST(HTEQEnv, UnitTestIsAskedOnce) {
    const bool first = HTEQEnv::isRunningAsHollinUnitTest();
    EXPECT_EQ(first, std::getenv("HOLLIN_UNIT_TEST") != nullptr);
    if (first)
        ::unsetenv("HOLLIN_UNIT_TEST");
    else
        ::setenv("HOLLIN_UNIT_TEST", "", 1);
    EXPECT_EQ(HTEQEnv::isRunningAsHollinUnitTest(), first);
}
