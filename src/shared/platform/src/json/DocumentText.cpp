#include "json/DocumentText.h"

#include <algorithm>
#include <array>
#include <boost/property_tree/json_parser/error.hpp>
#include <cstring>
#include <functional>
#include <string>

#include "json/JsonNode.h"
#include "json/NodeStore.h"
#include "msg/Budget.h"
#include "text/HSTStringUtils.h"

namespace json {

namespace {

using boost::property_tree::json_parser::json_parser_error;

/// Whether a byte is written as it is wherever it stands. A byte above 127 is if it belongs to a character of UTF-8.
constexpr auto kPlain = [] {
    std::array<bool, 256> plain{};
    for (int c = 0x20; c < 128; ++c) plain[c] = c != '"' && c != '/' && c != '\\';
    return plain;
}();

constexpr std::string_view kNamed = "\bb\ff\nn\rr\tt//\"\"\\\\";  ///< a byte, and what follows the backslash for it
constexpr std::string_view kDigits = "0123456789ABCDEF";

void appendEscape(text::CharBuffer& out, unsigned char c) {
    if (c >= 128) {             // of a path, which may hold any bytes
        out += "\xEF\xBF\xBD";  // U+FFFD
        return;
    }
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

bool isPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return kPlain[static_cast<unsigned char>(c)]; });
}

/// Writes a text in quotes, which is plain, at `at`; returns where it ends.
char* putPlain(char* at, std::string_view text) {
    *at++ = '"';
    at = std::copy(text.begin(), text.end(), at);
    *at++ = '"';
    return at;
}

void appendText(text::CharBuffer& out, std::string_view text) {
    if (isPlain(text)) {
        putPlain(out.extend(text.size() + 2), text);
        return;
    }
    out += '"';
    std::size_t kept = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto c = static_cast<unsigned char>(text[at]);
        if (kPlain[c]) [[likely]]
            continue;
        if (const std::size_t length = c < 128 ? 0 : HSTStringUtils::utf8Length(text.substr(at)); length > 0) {
            at += length - 1;
            continue;
        }
        out += text.substr(kept, at - kept);
        appendEscape(out, c);
        kept = at + 1;
    }
    out += text.substr(kept);
    out += '"';
}

void putLead(char* at, std::size_t depth) {
    *at = '\n';
    std::memset(at + 1, ' ', 4 * depth);
}

/// Reads items as this file writes them.
class ItemReader {
public:
    explicit ItemReader(std::string_view items) : at_(items.data()), end_(at_ + items.size()) {}
    bool isAtEnd() const { return at_ == end_; }
    char next() const { return *at_; }
    /// A character, or the indentation.
    void skip() {
        if (*at_ != ' ') ++at_;
        while (at_ != end_ && *at_ == ' ') at_ += 4;
    }
    /// What follows a key.
    void skipColon() { at_ += 2; }
    /// A text in quotes; valid until the next call with the same buffer.
    std::string_view text(std::string& buffer) {
        const char* const begin = ++at_;
        while (*at_ != '"' && *at_ != '\\') ++at_;
        std::string_view text(begin, static_cast<std::size_t>(at_ - begin));
        if (*at_ == '\\') {
            buffer = text;
            while (*at_ != '"') buffer += character_();
            text = buffer;
        }
        ++at_;
        return text;
    }

private:
    char character_() {
        if (*at_ != '\\') return *at_++;
        const char escape = at_[1];
        if (escape == 'u') {
            at_ += 6;
            return static_cast<char>(kDigits.find(at_[-2]) << 4 | kDigits.find(at_[-1]));
        }
        at_ += 2;
        std::size_t named = 1;
        while (kNamed[named] != escape) named += 2;
        return kNamed[named - 1];
    }

    const char* at_;
    const char* const end_;
};

}  // namespace

void DocumentText::cut(std::size_t size) {
    bytes_.cut(size);
    counted_ = std::min(counted_, size);
}

void DocumentText::beginItem(std::size_t depth, bool isFirst) {
    constexpr std::size_t kCounted = 4096;  // bytes that the budget is asked for at once
    if (size() - counted_ > kCounted) {
        Budget::spend(Cost::text, size() - counted_);
        counted_ = size();
    }
    char* lead = bytes_.extend((isFirst ? 1 : 2) + 4 * depth);
    if (!isFirst) *lead++ = ',';
    putLead(lead, depth);
}

void DocumentText::beginItem(std::size_t depth, bool isFirst, std::string_view key) {
    beginItem(depth, isFirst);
    if (!isPlain(key)) {
        appendText(bytes_, key);
        bytes_ += ": ";
        return;
    }
    char* const end = putPlain(bytes_.extend(key.size() + 4), key);
    end[0] = ':';
    end[1] = ' ';
}

void DocumentText::addValue(std::string_view text) { appendText(bytes_, text); }

void DocumentText::close(std::size_t depth, bool isList) {
    char* const lead = bytes_.extend(2 + 4 * (depth - 1));
    putLead(lead, depth - 1);
    lead[1 + 4 * (depth - 1)] = isList ? ']' : '}';
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
    text::CharBuffer written(64);
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

namespace {

/// Calls `value(key, text)`, `open(key)` and `close()` for items; the views are valid during the call.
template <class Value, class Open, class Close>
void read(std::string_view items, const Value& value, const Open& open, const Close& close) {
    std::string keyBuffer, textBuffer;
    ItemReader reader(items);
    while (!reader.isAtEnd()) {
        const char c = reader.next();
        if (c == ',' || c == '\n' || c == ' ' || c == '}' || c == ']') {
            if (c == '}' || c == ']') close();
            reader.skip();
            continue;
        }
        const std::string_view first = c == '"' ? reader.text(keyBuffer) : std::string_view();
        const bool hasKey = c == '"' && !reader.isAtEnd() && reader.next() == ':';
        if (hasKey) reader.skipColon();
        const std::string_view key = hasKey ? first : std::string_view();
        if (c == '"' && !hasKey) {
            value(key, first);
        } else if (reader.next() == '"') {
            value(key, reader.text(textBuffer));
        } else {
            reader.skip();
            open(key);
        }
    }
}

}  // namespace

void addTo(ptree& tree, std::string_view items) {
    NodeStore store;
    std::vector<ptree*> nodes{&tree};
    const auto add = [&](std::string_view key) { return &nodes.back()->push_back(store.of(key))->second; };
    read(
        items, [&](std::string_view key, std::string_view text) { add(key)->data() = text; },
        [&](std::string_view key) { nodes.push_back(add(key)); }, [&] { nodes.pop_back(); });
}

void Document::readOwn(std::string text) {
    source_ = std::move(text);
    decoded_.clear();
    entries_.clear();
    entries_.reserve(source_.size() / 32 + 1);
    const auto partOf = [this](std::string_view part) {
        const char* const begin = source_.data();
        const bool stands = !std::less<>()(part.data(), begin) && std::less<>()(part.data(), begin + source_.size());
        return stands ? Part{static_cast<std::uint32_t>(part.data() - begin), static_cast<std::uint32_t>(part.size())}
                      : add(part);
    };
    std::vector<std::uint32_t> nodes;
    const auto make = [&](std::string_view key, std::string_view value) {
        const auto index = static_cast<std::uint32_t>(entries_.size());
        entries_.push_back({partOf(key), partOf(value), index + 1});
        return index;
    };
    read(
        source_, make, [&](std::string_view key) { nodes.push_back(make(key, {})); },
        [&] {
            entries_[nodes.back()].end = static_cast<std::uint32_t>(entries_.size());
            nodes.pop_back();
        });
}

bool isList(const ptree& node) {
    return std::all_of(node.begin(), node.end(), [](const ptree::value_type& child) { return child.first.empty(); });
}

}  // namespace json
