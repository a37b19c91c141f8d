#pragma once
#include <string>
#include <string_view>

/// What `HTEQEnv::getProductName` answers for an application root.
std::string productNameOf(std::string_view appRoot, bool isUnitTest);
