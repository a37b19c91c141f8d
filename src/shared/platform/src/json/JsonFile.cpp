#include "json/JsonFile.h"

#include <boost/property_tree/json_parser/error.hpp>

#include "msg/HEXAll.h"
#include "util/WholeFile.h"

namespace json {

namespace {

std::string textOf(const std::string& file) {
    constexpr std::size_t kMaxBytes = 32u << 20;
    try {
        return wholefile::read(file, kMaxBytes);
    } catch (const HEXUserException& e) {
        throw boost::property_tree::json_parser::json_parser_error(e.what(), file, 0);
    }
}

}  // namespace

void parseFile(const std::string& file, ptree& tree, const Limits& limits) {
    parse(textOf(file), file, tree, limits);
}

void parseFile(const std::string& file, Document& document) { document.parse(textOf(file), file); }

}  // namespace json
