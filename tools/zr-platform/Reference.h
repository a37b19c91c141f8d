#pragma once
#include <string>

/// The manual page ("man") or the reference page ("markdown"), generated from the rows
/// of verbs(); or the page of all findings ("findings"), generated from the library's table.
std::string referenceAs(const std::string& form);
