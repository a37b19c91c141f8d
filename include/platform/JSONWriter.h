#pragma once
#include <boost/property_tree/ptree.hpp>
#include <iosfwd>
#include <memory>
#include <string>

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

    /// True if the tree has no children, whatever value it holds itself.
    bool empty() const { return tree_.empty(); }

    /// Writes the document: four blanks per level, every value in quotes, a final newline. Throws the property tree's
    /// `json_parser_error` if a node has both a value and children, before anything is written, and if the stream has
    /// failed.
    void write(std::ostream& out) const;

    /// Shares the empty nodes that `parent` copies its children from, which makes many similar objects faster to
    /// write. Nothing else changes; copies of a writer share nothing.
    void shareNodesOf(JSONWriter& parent);

protected:
    /// A new node without a value at the end of the tree.
    ptree& append(const std::string& key);

private:
    ptree tree_;
    std::shared_ptr<json::NodeStore> nodes_;
};

}  // namespace teq_platform

// Programs that include only this header expect all three writers.
#include "platform/JSONListWriter.h"
#include "platform/JSONObjectWriter.h"
