#include <array>
#include <boost/property_tree/json_parser/error.hpp>
#include <utility>
#include <vector>

#include "json/JsonText.h"
#include "json/ValueStream.h"
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

template <class Out>
void appendEscape(Out& out, unsigned char c) {
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

template <class Out>
void appendText(Out& out, std::string_view text) {
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

/// A document in the form of the property tree's own writer, in a std::string or a `text::CharBuffer`.
template <class Out>
class Printer {
public:
    explicit Printer(Out out) : out_(std::move(out)) {}
    /// A key of an open object, or an item of an open list.
    void value(std::string_view key, std::string_view text) {
        begin(key);
        appendText(out_, text);
    }
    /// `text` is what the tree has beside the children.
    void open(std::string_view key, std::string_view text, bool isList) {
        if (!text.empty())
            BOOST_PROPERTY_TREE_THROW(
                json_parser_error("ptree contains data that cannot be represented in JSON format: \"" +
                                      std::string(key) + "\" has a value and children",
                                  "", 0));
        if (!levels_.empty()) begin(key);
        out_ += isList ? '[' : '{';
        levels_.push_back({isList});
        lead_.append(4, ' ');
    }
    void close() {
        const bool isList = levels_.back().isList;
        levels_.pop_back();
        lead_.resize(lead_.size() - 4);
        out_ += std::string_view(lead_).substr(1);
        out_ += isList ? ']' : '}';
        if (!levels_.empty()) return;
        out_ += '\n';
        spend();
    }
    Out take() { return std::move(out_); }

private:
    struct Level {
        bool isList, isBegun = false;
    };
    void begin(std::string_view key) {
        if (out_.size() - counted_ > kCounted) spend();
        Level& level = levels_.back();
        out_ += std::string_view(lead_).substr(level.isBegun ? 0 : 1);
        level.isBegun = true;
        if (level.isList) return;
        appendText(out_, key);
        out_ += ": ";
    }
    void spend() { Budget::spend(Cost::text, out_.size() - std::exchange(counted_, out_.size())); }

    static constexpr std::size_t kCounted = 4096;  ///< bytes that the budget is asked for at once

    Out out_;
    std::string lead_ = ",\n";  ///< what precedes an item, at the present depth
    std::vector<Level> levels_;
    std::size_t counted_ = 0;
};

/// The children of the open node, which is then closed.
void printChildren(Printer<std::string>& printer, const ptree& node) {
    struct Level {
        ptree::const_iterator next, end;
    };
    std::vector<Level> open{{node.begin(), node.end()}};
    while (!open.empty()) {
        if (open.back().next == open.back().end) {
            open.pop_back();
            printer.close();
            continue;
        }
        const auto& [name, child] = *open.back().next++;
        if (child.empty()) {
            printer.value(name, child.data());
            continue;
        }
        printer.open(name, child.data(), isList(child));
        open.push_back({child.begin(), child.end()});
    }
}

/// Bytes of a document to those of its items, at most as a rule: a document that outgrows it is copied.
constexpr std::size_t kExpected = 3;

template <class Out>
Out printItems(std::string_view items, Out out) {
    using Kind = ValueStream::Kind;
    Printer printer(std::move(out));
    printer.open("", "", false);
    while (!items.empty()) {
        const auto [kind, key, text] = takeItem(items);
        if (kind == Kind::value)
            printer.value(key, text);
        else if (kind == Kind::end)
            printer.close();
        else
            printer.open(key, text, kind == Kind::list);
    }
    printer.close();
    return printer.take();
}

}  // namespace

std::string write(const ptree& tree) {
    Printer printer{std::string()};
    printer.open("", tree.data(), false);
    printChildren(printer, tree);
    return printer.take();
}

std::string writeMember(const std::string& key, const ptree& node) {
    Printer printer{std::string()};
    printer.open("", "", false);
    printer.open(key, node.data(), isList(node));
    printChildren(printer, node);
    printer.close();
    return printer.take();
}

std::string writeItems(std::string_view items) {
    std::string out;
    out.reserve(kExpected * items.size());
    return printItems(items, std::move(out));
}

text::CharBuffer writeItemsToBuffer(std::string_view items) {
    return printItems(items, text::CharBuffer(kExpected * items.size()));
}

}  // namespace json
