#pragma once
#include <string>
#include <string_view>

/// The result of `HTEQEnv::getProductName` for an application root.
std::string productNameOf(std::string_view appRoot, bool isUnitTest);
