#pragma once
#include <boost/property_tree/json_parser.hpp>
#include <string>

#include "msg/HEXFileFault.h"

namespace json {

/// What an error of `parse` or `write` tells of `file`, or of `member` of that archive.
FileProblem problemOf(const boost::property_tree::json_parser_error& e, const std::string& file,
                      const std::string& member = "");

}  // namespace json
