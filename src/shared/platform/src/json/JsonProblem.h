#pragma once
#include <boost/property_tree/json_parser.hpp>
#include <string>

#include "msg/HEXFileFault.h"

namespace json {

/// An error of `parse` or `write` as a problem of `file`, or of `member` of that archive.
FileProblem problemOf(const boost::property_tree::json_parser_error& e, const std::string& file,
                      const std::string& member = "");

}  // namespace json
