#pragma once
#include <string>

#include "json/JsonText.h"

namespace hardware {

/// The JSON document of the file at `path`, of at most 32 MiB. Throws the property tree's json_parser_error when the
/// file cannot be read, is larger, or is no JSON.
json::ptree readJsonFile(const std::string& path);

}  // namespace hardware
