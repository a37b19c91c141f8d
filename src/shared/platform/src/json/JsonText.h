#pragma once
#include <boost/property_tree/json_parser/error.hpp>
#include <boost/property_tree/ptree.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "json/JsonPlaces.h"
#include "msg/HEXDiagnostic.h"

/// JSON text to property tree and back, without recursion.
namespace json {

using ptree = boost::property_tree::ptree;

struct Limits {
    std::size_t depth = 192;        ///< levels of brackets; trees are copied and destroyed by recursion
    std::size_t nodes = 1'000'000;  ///< values of the whole document
    std::size_t keyLevels = 64;     ///< dot-separated levels of a key that is used as a path
    bool countsContent = true;      ///< a request may read only so many bytes of keys and texts
};
inline constexpr Limits kUntrusted{};                                ///< for members of archives and files of others
inline constexpr Limits kOwn{.depth = 256, .countsContent = false};  ///< for documents that this library wrote

/// Fills `tree` with the document `text`: numbers, true, false and null as in the text, duplicate keys kept in order,
/// a leading byte-order mark skipped. Throws `json_parser_error` with `name`, the line and the error if the text is not JSON
/// or not valid UTF-8, has NUL in a string, has anything after the document, or exceeds the limits; `tree` is then
/// unchanged.
void parse(std::string_view text, const std::string& name, ptree& tree, const Limits& limits = kUntrusted);
/// The same for a text whose place (file and member) is more than its name.
void parse(std::string_view text, const std::string& name, const HEXDiagnostic& place, ptree& tree);

/// Why a text is not JSON, or exceeds the limits.
struct Fault {
    TextPlace place;
    std::string text;
};
/// File, member and location of an error that `parse` threw; null for any other exception.
const HEXDiagnostic* diagnosticOf(const std::exception& e);

/// The same without an exception: the error, or no value if `tree` has been filled.
std::optional<Fault> tryParse(std::string_view text, ptree& tree, const Limits& limits = kUntrusted);

/// The same bytes as from the property tree's own pretty writer. Throws `json_parser_error`, with the key in its
/// text, if a node has both a value and children, or the root has a value.
std::string write(const ptree& tree);
/// The same of a root whose only child is `node`, which has children itself.
std::string writeMember(const std::string& key, const ptree& node);

}  // namespace json
