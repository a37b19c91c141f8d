#include "json/DocumentText.h"

#include <algorithm>
#include <array>
#include <boost/property_tree/json_parser/error.hpp>
#include <cstring>
#include <string>

#include "json/NodeStore.h"
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

constexpr std::string_view kNamed = "\bb\ff\nn\rr\tt//\"\"\\\\";  ///< a byte, and what follows the backslash for it
constexpr std::string_view kDigits = "0123456789ABCDEF";

void appendEscape(text::CharBuffer& out, unsigned char c) {
    for (std::size_t i = 0; i < kNamed.size(); i += 2)
        if (c == static_cast<unsigned char>(kNamed[i])) {
            out += '\\';
            out += kNamed[i + 1];
            return;
        }
    out += "\\u00";
    out += kDigits[c >> 4];
    out += kDigits[c & 15];
}

void appendText(text::CharBuffer& out, std::string_view text) {
    out += '"';
    std::size_t kept = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto c = static_cast<unsigned char>(text[at]);
        if (kPlain[c]) [[likely]]
            continue;
        out += text.substr(kept, at - kept);
        appendEscape(out, c);
        kept = at + 1;
    }
    out += text.substr(kept);
    out += '"';
}

/// Takes a text in quotes off `items`, which begin with it.
std::string takeText(std::string_view& items) {
    std::string text;
    std::size_t at = 1;
    for (; items[at] != '"'; ++at) {
        if (items[at] != '\\') {
            text += items[at];
            continue;
        }
        const char escape = items[++at];
        if (escape == 'u') {
            text += static_cast<char>(kDigits.find(items[at + 3]) << 4 | kDigits.find(items[at + 4]));
            at += 4;
            continue;
        }
        std::size_t named = 1;
        while (kNamed[named] != escape) named += 2;
        text += kNamed[named - 1];
    }
    items.remove_prefix(at + 1);
    return text;
}

}  // namespace

void DocumentText::cut(std::size_t size) {
    bytes_.cut(size);
    counted_ = std::min(counted_, size);
}

void DocumentText::addLead_(std::size_t depth) {
    char* const lead = bytes_.extend(1 + 4 * depth);
    *lead = '\n';
    std::memset(lead + 1, ' ', 4 * depth);
}

void DocumentText::beginItem_(std::size_t depth, bool isFirst) {
    constexpr std::size_t kCounted = 4096;  // bytes that the budget is asked for at once
    if (size() - counted_ > kCounted) {
        Budget::spend(Cost::text, size() - counted_);
        counted_ = size();
    }
    if (!isFirst) bytes_ += ',';
    addLead_(depth);
}

void DocumentText::beginItem(std::size_t depth, bool isFirst, std::string_view key) {
    beginItem_(depth, isFirst);
    appendText(bytes_, key);
    bytes_ += ": ";
}

void DocumentText::addValue(std::string_view text) { appendText(bytes_, text); }

void DocumentText::close(std::size_t depth, bool isList) {
    addLead_(depth - 1);
    bytes_ += isList ? ']' : '}';
}

void DocumentText::closeDocument() {
    close(1, false);
    add('\n');
}

void DocumentText::addChildren(const ptree& tree, bool isList, std::size_t depth) {
    struct Level {
        ptree::const_iterator next, end;
        bool isList, isFirst = true;
    };
    std::vector<Level> levels{{tree.begin(), tree.end(), isList}};
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.end) {
            if (levels.size() > 1) close(depth + levels.size() - 1, level.isList);
            levels.pop_back();
            continue;
        }
        const auto& [name, child] = *level.next++;
        const std::size_t at = depth + levels.size() - 1;
        level.isList ? beginItem(at, level.isFirst) : beginItem(at, level.isFirst, name);
        level.isFirst = false;
        if (child.empty()) {
            addValue(child.data());
            continue;
        }
        expectNoValue(child, name);
        const bool isListBelow = json::isList(child);
        open(isListBelow);
        levels.push_back({child.begin(), child.end(), isListBelow});
    }
}

void DocumentText::addItems(std::string_view items, std::size_t from, std::size_t to) {
    if (from == to) {
        bytes_ += items;
        return;
    }
    // Texts have no line ends: after each of them stand the blanks of a level, of which the first ones are replaced.
    std::string lead = "\n";
    if (to > from) lead.append(4 * (to - from), ' ');
    const std::size_t dropped = to > from ? 0 : 4 * (from - to);
    while (!items.empty()) {
        const std::size_t end = std::min(items.find('\n'), items.size());
        bytes_ += items.substr(0, end);
        if (end == items.size()) return;
        bytes_ += lead;
        items.remove_prefix(end + 1 + dropped);
    }
}

std::uint32_t DocumentText::markOf(std::string_view key) {
    const auto byte = [&](std::size_t at) -> std::uint32_t { return static_cast<unsigned char>(key[at]); };
    if (key.empty()) return 0;
    return static_cast<std::uint32_t>(key.size()) << 24 | byte(0) << 16 | byte(key.size() / 2) << 8 |
           byte(key.size() - 1);
}

bool DocumentText::hasKey(std::size_t at, std::string_view key) const {
    text::CharBuffer written;
    appendText(written, key);
    std::string_view item = bytes_.view().substr(at);
    item.remove_prefix(item.find('"'));
    return item.starts_with(written.view());
}

void expectNoValue(const ptree& node, const std::string& key) {
    if (!node.data().empty())
        BOOST_PROPERTY_TREE_THROW(json_parser_error(
            "ptree contains data that cannot be represented in JSON format: \"" + key + "\" has a value and children",
            "", 0));
}

void addTo(ptree& tree, std::string_view items) {
    NodeStore store;
    std::vector<ptree*> open{&tree};
    while (!items.empty()) {
        const char c = items.front();
        if (c == ',' || c == '\n' || c == ' ' || c == '}' || c == ']') {
            if (c == '}' || c == ']') open.pop_back();
            items.remove_prefix(1);
            continue;
        }
        std::string key, text;
        const bool isText = c == '"';
        if (isText) text = takeText(items);
        const bool hasKey = isText && items.starts_with(':');
        if (hasKey) {
            key.swap(text);
            items.remove_prefix(2);
        }
        ptree& made = open.back()->push_back(store.of(key))->second;
        if (hasKey ? items.front() == '"' : isText) {
            made.data() = hasKey ? takeText(items) : std::move(text);
        } else {
            items.remove_prefix(1);
            open.push_back(&made);
        }
    }
}

bool isList(const ptree& node) {
    return std::all_of(node.begin(), node.end(), [](const ptree::value_type& child) { return child.first.empty(); });
}

}  // namespace json
