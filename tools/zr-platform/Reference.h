#pragma once
#include <string>
#include <vector>

/// The manual page ("man") or the reference page ("markdown"), generated from the rows
/// of verbs(); or the page of all findings ("findings"), generated from the library's table.
std::string referenceAs(const std::string& form);

/// The forms of `referenceAs`.
std::vector<std::string> referenceForms();
