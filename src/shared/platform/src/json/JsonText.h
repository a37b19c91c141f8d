#pragma once
#include <boost/property_tree/json_parser/error.hpp>
#include <boost/property_tree/ptree.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "json/JsonPlaces.h"
#include "msg/HEXDiagnostic.h"

/// JSON text to property tree and back, each in one function. Neither recurses.
namespace json {

using ptree = boost::property_tree::ptree;

struct Limits {
    std::size_t depth = 192;        ///< levels of brackets; trees are copied and destroyed by recursion
    std::size_t nodes = 1'000'000;  ///< values of the whole document
    std::size_t keyLevels = 64;     ///< levels that the dots of one key make when it is used as a path
};
inline constexpr Limits kStrangers{};        ///< for members of archives and files of others
inline constexpr Limits kOwn{.depth = 256};  ///< for documents that this library wrote

/// Fills `tree` with the document `text`: numbers, true, false and null as they stand in the text, duplicate keys one
/// behind the other, a leading byte-order mark skipped. Throws `ParseError` with `name`, the line and what is
/// wrong when the text is not JSON, is not valid UTF-8, has a NUL in a text, holds something behind the document, or
/// exceeds the limits; `tree` is then as it was.
void parse(std::string_view text, const std::string& name, ptree& tree, const Limits& limits = kStrangers);
/// The same for a text whose place (file and member) is more than its name.
void parse(std::string_view text, const std::string& name, const HEXDiagnostic& place, ptree& tree);

/// Why a text is not JSON, or too much of it.
struct Fault {
    TextPlace place;
    std::string text;
};
/// What `parse` throws: the property tree's own exception, which callers expect, with the place as a record.
class ParseError : public boost::property_tree::json_parser::json_parser_error {
public:
    /// `place` names file and member.
    ParseError(const std::string& name, HEXDiagnostic place, const Fault& fault);
    const HEXDiagnostic& diagnostic() const { return diagnostic_; }

private:
    HEXDiagnostic diagnostic_;
};
/// The same without an exception: the fault, or nothing when `tree` has been filled.
std::optional<Fault> tryParse(std::string_view text, ptree& tree, const Limits& limits = kStrangers);

/// The bytes that the property tree's own pretty writer gives. Throws `json_parser_error`, with the key in its text,
/// when a node has both a value and children, or the root a value.
std::string write(const ptree& tree);

}  // namespace json
