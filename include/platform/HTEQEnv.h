#pragma once
#include <string>

#include "text/ZrApi.h"

/// Which product the library runs under.
class ZR_API HTEQEnv {
public:
    /// Whether the environment variable HOLLIN_UNIT_TEST is set, to any value. Asked once in the life of the process.
    static bool isRunningAsHollinUnitTest();

    /// "selbrook", "teq", "delmar", "morwen" or "unknown": the product whose name stands furthest to the right in the
    /// application root, without regard to case. Under a unit test "teq" does not count, and "selbrook" stands for
    /// "unknown". Worked out once in the life of the process.
    static std::string getProductName();
};
