#pragma once
#include <string>

#include "json/JsonNode.h"

namespace json {

/// Fills `tree` with the document in a regular file of at most 32 MiB. Throws `json_parser_error` with the file's
/// name if it cannot be read or is not JSON within the limits; `tree` is then unchanged.
void parseFile(const std::string& file, ptree& tree, const Limits& limits = kUntrusted);
/// The same; `document` is empty after an error.
void parseFile(const std::string& file, Document& document);

}  // namespace json
