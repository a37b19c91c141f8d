#pragma once
#include <string>

#include "json/JsonShape.h"

namespace json {

/// The JSON Schema (2020-12) of documents with these keys. It states what the reader requires; other keys are allowed,
/// and a single value may be of any type.
std::string schemaOf(const std::string& title, Shapes shapes);

}  // namespace json
