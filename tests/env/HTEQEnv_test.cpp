#include "platform/HTEQEnv.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "env/ProductName.h"

TEST(HTEQEnv, ProductName) {
    static constexpr struct {
        const char *root, *name, *nameInUnitTest;
    } cases[] = {
        {"", "unknown", "selbrook"},
        {"/opt/tools/2026.2", "unknown", "selbrook"},
        {"/opt/torvane/Morwen/2026.2", "morwen", "morwen"},
        {"/opt/morwen/2026.2/selbrook", "selbrook", "selbrook"},
        {"/opt/selbrook/morwen/data", "morwen", "morwen"},
        {"/selbrook/delmar/selbrook", "selbrook", "selbrook"},
        {"/opt/delmar/teq", "teq", "delmar"},
        {"teq", "teq", "selbrook"},  // at the very first position
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.root);
        EXPECT_EQ(productNameOf(c.root, false), c.name);
        EXPECT_EQ(productNameOf(c.root, true), c.nameInUnitTest);
    }
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
