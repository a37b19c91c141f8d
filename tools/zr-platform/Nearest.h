#pragma once
#include <string>
#include <vector>

/// "; nearest: a, b, c" of the known names that are most like `name`; empty without any.
std::string nearest(const std::string& name, const std::vector<std::string>& known);
