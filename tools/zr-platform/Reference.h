#pragma once
#include <string>

/// The manual page ("man"), the reference page ("markdown") or the completion ("bash"), made from the rows of
/// verbs(); or the page of all findings ("findings"), made from the rows of the library.
std::string referenceAs(const std::string& form);
