#pragma once
#include <string>
#include <vector>

namespace json {

/// What a JSON document loses on its way to another: "key: lost" or "key: old -> new" for each value of `before` that
/// `after` does not have as the same text, with the path of the key ("devices[0].core.ports"). Keys that only `after`
/// has do not count, nor does another order of items that have names. Throws `HEXDataException` when one of them is
/// no JSON.
std::vector<std::string> lostOrChanged(const std::string& before, const std::string& after);

}  // namespace json
