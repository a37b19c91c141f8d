#include <boost/property_tree/json_parser.hpp>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "Check.h"
#include "json/JsonText.h"

namespace {

/// The tree that its own reader makes of the text.
json::ptree byTheTreesOwnReader(std::string_view text) {
    std::istringstream in{std::string(text)};
    json::ptree tree;
    read_json(in, tree);
    return tree;
}

}  // namespace

/// What is read is what the property tree's own reader makes of it. What is read, written and read again is the same
/// tree, and the writer's bytes are those of the property tree's own.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using boost::property_tree::json_parser_error;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    json::ptree tree, again;
    try {
        json::parse(input, "input", tree);
    } catch (const json_parser_error&) {
        require(tree.empty() && tree.data().empty(), "a refused document leaves the tree as it was");
        return 0;
    }
    require(tree == byTheTreesOwnReader(input), "the tree is the one of the tree's own reader");
    if (!tree.data().empty()) {
        tree.data().clear();  // a document that is a single value cannot be written
        require(tree.empty(), "a value has no children");
    }
    const std::string text = json::write(tree);
    std::ostringstream reference;
    write_json(reference, tree);
    require(text == reference.str(), "the text is the one of the tree's own writer");
    json::parse(text, "written", again);
    require(tree == again, "the text gives the tree again");
    return 0;
}
