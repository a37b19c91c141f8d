#pragma once
#include <string>

/// The manual page ("man"), the reference page ("markdown") or the completion ("bash"), made from the rows of
/// verbs().
std::string referenceAs(const std::string& form);
