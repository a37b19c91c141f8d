#pragma once
#include <string>
#include <vector>

#include "json/JsonShape.h"

namespace json {

/// What is lost between two JSON documents: "key: lost" or "key: old -> new" for each value of `before` that `after`
/// does not have as the same text, with the path of the key ("devices[0].core.ports"); the last row may be "and N
/// more". Of a key that appears twice, the second value is lost. Keys that only `after` has, and a different order of
/// items with names, are ignored, and so is the top-level key `ignored`. `shapes` are the keys that the reader knows: objects
/// and lists that the library computes, and false and 0, which a missing key is read as, are not reported as lost. Throws
/// `json_parser_error`.
std::vector<std::string> lostOrChanged(const std::string& before, const std::string& after,
                                       const std::string& ignored = "", Shapes shapes = {});

}  // namespace json
