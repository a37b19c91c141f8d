#pragma once
#include <string>

#include "text/ZrApi.h"

/// The product that the library runs in.
class ZR_API HTEQEnv {
public:
    /// Whether the environment variable HOLLIN_UNIT_TEST is set, to any value. Read once per process.
    static bool isRunningAsHollinUnitTest();

    /// "selbrook", "teq", "delmar", "morwen" or "unknown": the product whose name is furthest to the right in the
    /// application root; case is ignored. Under a unit test "teq" is ignored, and "selbrook" replaces "unknown".
    /// Determined once per process.
    static std::string getProductName();
};
