#pragma once
#include <boost/property_tree/ptree.hpp>
#include <concepts>
#include <iosfwd>
#include <memory>
#include <string>

#include "platform/JSONSerializable.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace json {
class NodeStore;
}

namespace teq_platform {

using ptree = boost::property_tree::ptree;

/// Owns one property tree, in which every value is a text and an array is a node whose children have empty keys.
class ZR_API JSONWriter {
public:
    JSONWriter();
    JSONWriter(const JSONWriter& other);
    JSONWriter(JSONWriter&& other) noexcept;
    JSONWriter& operator=(const JSONWriter& other);
    JSONWriter& operator=(JSONWriter&& other) noexcept;
    ~JSONWriter();

    ptree& getTree() { return tree_; }
    const ptree& getTree() const { return tree_; }
    static ptree& getOtherTree(JSONWriter& other) { return other.tree_; }
    static const ptree& getOtherTree(const JSONWriter& other) { return other.tree_; }

    /// True when the tree has no children, whatever value it holds itself.
    bool empty() const { return tree_.empty(); }

    /// Writes the document: four blanks for each level, every value in quotes, a final newline. Throws the property
    /// tree's `json_parser_error`, before anything is written, when a node has both a value and children.
    void write(std::ostream& out) const;

    /// Shares the empty nodes that `parent` makes its children of: many like objects are then written faster. Nothing
    /// else changes; copies of a writer share nothing.
    void shareNodesOf(JSONWriter& parent);

protected:
    /// A new node without a value at the end of the tree.
    ptree& append(const std::string& key);

private:
    ptree tree_;
    std::shared_ptr<json::NodeStore> nodes_;
};

class JSONListWriter;

/// Fills its tree with named children, in the order of the calls. A key is a path: "." separates levels.
class ZR_API JSONObjectWriter : public JSONWriter {
public:
    /// Adds nothing when `value` is empty. Replaces the value in place when the path exists.
    void addKey(const std::string& key, const std::string& value);
    /// A text literal is a text, not a Boolean.
    void addKey(const std::string& key, const char* value) { addKey(key, std::string(value)); }
    /// Always written, as "true" or "false".
    void addKey(const std::string& key, bool value);
    /// Always written, as decimal text.
    template <std::integral T>
    void addKey(const std::string& key, T value) {
        addKey(key, std::to_string(value));
    }
    /// Adds the child's tree; nothing when it is empty. A key that is already there is added again.
    void addKey(const std::string& key, const JSONWriter& child);
    /// The same without a copy; `child` is left empty.
    void addKey(const std::string& key, JSONWriter&& child);
    /// Adds what the object writes as an object under `key`; nothing for null or when it writes nothing.
    void addKey(const std::string& key, const JSONSerializable* object);
    void addKey(const std::string& key, const ptree& tree);
    /// A list of the texts that are not empty; nothing when there is none.
    void addKey(const std::string& key, const HSTVector<std::string>& values);

    /// Lets the object write its keys directly into this writer.
    void writeObject(const JSONSerializable* object);
    void writeObject(const JSONSerializable& object) { object.toJSON(*this); }

private:
    void put_(const std::string& key, const std::string& value);
    ptree& addNode_(const std::string& key);
};

/// Fills its tree with children without a name.
class ZR_API JSONListWriter : public JSONWriter {
public:
    void addItem(const JSONWriter& item);
    void addItem(JSONWriter&& item);
    void addItem(const JSONSerializable* object);
    void addItem(const std::string& value);
    void addItem(const char* value) { addItem(std::string(value)); }
    /// Never returns, and never writes anything: a list of Booleans cannot be written. Kept because callers rely on
    /// the set of overloads as it is.
    [[noreturn]] void addItem(bool value);
};

}  // namespace teq_platform
