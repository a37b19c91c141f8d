#pragma once
#include <boost/property_tree/ptree.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "text/CharBuffer.h"

namespace json {

using ptree = boost::property_tree::ptree;

/// The text of a document while it is made, in the form of the property tree's own writer. An item is a key of an object
/// with its value, or a value of a list, which has no key; what precedes it belongs to it, except the comma of the first
/// one. Items are at a depth: the number of objects and lists around them.
class DocumentText {
public:
    std::size_t size() const { return bytes_.size(); }
    std::string_view part(std::size_t from, std::size_t to) const { return bytes_.view().substr(from, to - from); }
    void cut(std::size_t size);
    /// The text with a final NUL; afterwards it is empty.
    std::unique_ptr<char[]> take() { return bytes_.take(); }

    void add(char c) { bytes_ += c; }
    /// Begins an item of an object, or, without a key, of a list. Throws when the request may not write more.
    void beginItem(std::size_t depth, bool isFirst);
    void beginItem(std::size_t depth, bool isFirst, std::string_view key);
    void addValue(std::string_view text);
    void open(bool isList) { bytes_ += isList ? '[' : '{'; }
    /// Ends an object or a list whose items are at `depth`.
    void close(std::size_t depth, bool isList);
    void closeDocument();
    /// The children of a tree as items. Throws `json_parser_error` for a node that has both a value and children.
    void addChildren(const ptree& tree, bool isList, std::size_t depth);
    /// Items of another text, which are at the depth `from` there.
    void addItems(std::string_view items, std::size_t from, std::size_t to);

    /// Where an item with a key begins, and a number that most other keys do not have.
    struct Key {
        std::size_t at;
        std::uint32_t mark;
    };
    static std::uint32_t markOf(std::string_view key);
    /// Whether the item that begins at `at` has this key.
    bool hasKey(std::size_t at, std::string_view key) const;
    /// The items of each writer that is open, those of the innermost one last.
    std::vector<Key> keys;

private:
    text::CharBuffer bytes_;
    std::size_t counted_ = 0;
};

/// Throws `json_parser_error` if a node that has children, or is the document, has a value.
void expectNoValue(const ptree& node, const std::string& key);
/// Adds items to a tree.
void addTo(ptree& tree, std::string_view items);
/// Whether the node is written as a list: no child has a key.
bool isList(const ptree& node);

}  // namespace json
