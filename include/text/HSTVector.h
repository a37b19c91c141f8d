#pragma once
#include <vector>

/// The vector of all public signatures.
template <class T>
using HSTVector = std::vector<T>;
