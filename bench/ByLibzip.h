#pragma once
#include <string>

/// A member by libzip; its header stands apart because its names clash with those of our reader.
std::string readByLibzip(const char* archive, const char* member);
