#pragma once
#include <string>

/// What a library must leave as it found it in its host: a line for each thing, to be compared.
std::string hostState();
