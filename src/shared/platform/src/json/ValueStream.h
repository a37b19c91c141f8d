#pragma once
#include <boost/property_tree/ptree.hpp>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/JSONWriter.h"
#include "text/CharBuffer.h"

namespace json {

using teq_platform::JSONWriter;
using ptree = boost::property_tree::ptree;

/// Keys and values as a writer was given them, one after the other in a single text: all that a document needs until it
/// is printed. Sizes have 32 bits.
class ValueStream {
public:
    enum class Kind : char { value, object, list, end };
    struct Item {
        Kind kind;
        std::string_view key, text;  ///< an object or a list has a text only if a tree had it beside its children
    };

    static bool fits(std::string_view text) { return text.size() <= UINT32_MAX; }
    std::size_t size() const { return bytes_.size(); }
    /// Throws std::length_error for a text that does not fit. Nothing is added after an exception.
    void add(Kind kind, std::string_view key, std::string_view text = {});
    void addEnd() { bytes_ += static_cast<char>(Kind::end); }
    void addItems(std::string_view items) { bytes_ += items; }
    /// A node that has children, with all of them; not at all if a text does not fit.
    void addTree(std::string_view key, const ptree& tree);
    /// An object, or a list if the items have no keys.
    void addItemsBelow(std::string_view key, std::string_view items);
    void cut(std::size_t size) { bytes_.cut(size); }
    std::string_view keyAt(std::size_t item) const;
    std::string_view items(std::size_t from, std::size_t to) const { return bytes_.view().substr(from, to - from); }

    /// An item with a key, and a number that most other keys do not have.
    struct Key {
        std::size_t at;
        std::uint32_t mark;
    };
    static std::uint32_t markOf(std::string_view key);
    /// The items of each writer that is open, those of the innermost one last.
    std::vector<Key> keys;

private:
    text::CharBuffer bytes_;
};

/// Takes the first item off `items`.
ValueStream::Item takeItem(std::string_view& items);
/// Adds the items to a tree.
void addTo(ptree& tree, std::string_view items);
/// The document of these items.
std::string writeItems(std::string_view items);
text::CharBuffer writeItemsToBuffer(std::string_view items);
/// Whether the node is written as a list: no child has a key.
bool isList(const ptree& node);

}  // namespace json
