#pragma once
#include <set>
#include <string>

#include "json/JsonNode.h"

namespace services {

/// The paths of all keys of a document, each once; an item of a list adds "[]" to the path of the list. Throws
/// `HEXFileFault` if they have more than 16 MiB.
std::set<std::string> keysOf(const json::Node& document);

}  // namespace services
