#pragma once
#include <boost/property_tree/ptree.hpp>
#include <string>

#include "json/JsonNode.h"

class HTEQPlatform;

namespace services {

/// The document of a platform as a tree: the one that its text gives when it is parsed, made without text and parser.
boost::property_tree::ptree documentTree(const HTEQPlatform& platform);
/// The same as text.
std::string documentText(const HTEQPlatform& platform);
/// The same in an array, which costs much less.
void read(const HTEQPlatform& platform, json::Document& document);
/// The tree of a document's text. Throws `json_parser_error`.
boost::property_tree::ptree parsed(const std::string& document);

}  // namespace services
