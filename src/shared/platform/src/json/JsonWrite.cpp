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

void appendText(std::string& out, std::string_view text) {
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

/// A document in the form of the property tree's own writer.
class Printer {
public:
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
        out_ += isList ? "[\n" : "{\n";
        levels_.push_back({isList});
    }
    void close() {
        const Level level = levels_.back();
        levels_.pop_back();
        if (level.isBegun) out_ += '\n';
        indent();
        out_ += level.isList ? ']' : '}';
        if (levels_.empty()) out_ += '\n';
        spend();
    }
    std::string take() { return std::move(out_); }

private:
    struct Level {
        bool isList, isBegun = false;
    };
    void indent() { out_.append(4 * levels_.size(), ' '); }
    void begin(std::string_view key) {
        Level& level = levels_.back();
        if (level.isBegun) out_ += ",\n";
        level.isBegun = true;
        spend();
        indent();
        if (level.isList) return;
        appendText(out_, key);
        out_ += ": ";
    }
    void spend() { Budget::spend(Cost::text, out_.size() - std::exchange(counted_, out_.size())); }

    std::string out_;
    std::vector<Level> levels_;
    std::size_t counted_ = 0;
};

/// The children of the open node, which is then closed.
void printChildren(Printer& printer, const ptree& node) {
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

}  // namespace

std::string write(const ptree& tree) {
    Printer printer;
    printer.open("", tree.data(), false);
    printChildren(printer, tree);
    return printer.take();
}

std::string writeMember(const std::string& key, const ptree& node) {
    Printer printer;
    printer.open("", "", false);
    printer.open(key, node.data(), isList(node));
    printChildren(printer, node);
    printer.close();
    return printer.take();
}

std::string writeItems(std::string_view items) {
    using Kind = ValueStream::Kind;
    Printer printer;
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

}  // namespace json
