#include <algorithm>
#include <array>
#include <boost/property_tree/json_parser/error.hpp>
#include <utility>
#include <vector>

#include "json/JsonText.h"
#include "msg/Budget.h"

namespace json {

namespace {

using boost::property_tree::json_parser::json_parser_error;

/// Whether a byte is written without an escape. Bytes above 127 are: the model's texts are UTF-8.
constexpr auto kPlain = [] {
    std::array<bool, 256> plain{};
    for (int c = 0x20; c < 256; ++c) plain[c] = c != '"' && c != '/' && c != '\\';
    return plain;
}();

void appendEscape(std::string& out, unsigned char c) {
    constexpr std::string_view kNamed = "\bb\ff\nn\rr\tt//\"\"\\\\";
    for (std::size_t i = 0; i < kNamed.size(); i += 2)
        if (c == static_cast<unsigned char>(kNamed[i])) {
            out += '\\';
            out += kNamed[i + 1];
            return;
        }
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    out += "\\u00";
    out += kDigits[c >> 4];
    out += kDigits[c & 15];
}

void appendText(std::string& out, const std::string& text) {
    out += '"';
    auto kept = text.begin();
    for (auto at = text.begin(); at != text.end(); ++at) {
        const auto c = static_cast<unsigned char>(*at);
        if (kPlain[c]) [[likely]]
            continue;
        out.append(kept, at);
        appendEscape(out, c);
        kept = at + 1;
    }
    out.append(kept, text.end());
    out += '"';
}

/// An open object or list.
struct Level {
    const ptree* node;
    ptree::const_iterator next;
    bool list;
};

bool isList(const ptree& node) {
    return std::all_of(node.begin(), node.end(), [](const ptree::value_type& child) { return child.first.empty(); });
}

void indent(std::string& out, std::size_t levels) { out.append(4 * levels, ' '); }

void open(std::string& out, std::vector<Level>& levels, const ptree& node, const std::string& key) {
    if (!node.data().empty())
        BOOST_PROPERTY_TREE_THROW(json_parser_error(
            "ptree contains data that cannot be represented in JSON format: \"" + key + "\" has a value and children",
            "", 0));
    const bool list = !levels.empty() && isList(node);
    out += list ? "[\n" : "{\n";
    levels.push_back({&node, node.begin(), list});
}

void close(std::string& out, std::vector<Level>& levels) {
    const bool list = levels.back().list;
    levels.pop_back();
    indent(out, levels.size());
    out += list ? ']' : '}';
}

/// After a value: a comma if its container continues, and the line end.
void endLine(std::string& out, const Level& level) {
    if (level.next != level.node->end()) out += ',';
    out += '\n';
}

/// Adds what is left of the open levels.
void finish(std::string& out, std::vector<Level>& levels) {
    std::size_t counted = 0;
    while (!levels.empty()) {
        Budget::spend(Cost::text, out.size() - std::exchange(counted, out.size()));
        Level& level = levels.back();
        if (level.next == level.node->end()) {
            close(out, levels);
            if (!levels.empty()) endLine(out, levels.back());
            continue;
        }
        const auto& [key, child] = *level.next++;
        indent(out, levels.size());
        if (!level.list) {
            appendText(out, key);
            out += ": ";
        }
        if (!child.empty()) {
            open(out, levels, child, key);
            continue;
        }
        appendText(out, child.data());
        endLine(out, level);
    }
    out += '\n';
}

}  // namespace

std::string write(const ptree& tree) {
    std::string out;
    std::vector<Level> levels;
    open(out, levels, tree, "");
    finish(out, levels);
    return out;
}

std::string writeMember(const std::string& key, const ptree& node) {
    static const ptree kNone;
    std::string out = "{\n";
    std::vector<Level> levels{{&kNone, kNone.end(), false}};
    indent(out, 1);
    appendText(out, key);
    out += ": ";
    open(out, levels, node, key);
    finish(out, levels);
    return out;
}

}  // namespace json
