#pragma once
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/JsonText.h"

/// A JSON document as a reader needs it: in one array, its texts where they stand in the document.
namespace json {

class Document;

/// A value of a document, which must outlive it. Without one it stands for a value that is missing, and has neither text
/// nor children.
class Node {
public:
    class Iterator;
    Node() = default;

    explicit operator bool() const { return document_; }
    /// The key; empty for an item of a list, and for the document itself.
    std::string_view name() const;
    /// A text, or a number, true, false or null as in the document; empty for an object or a list.
    std::string_view text() const;
    /// The same as a string.
    std::string data() const { return std::string(text()); }
    /// Its number in the order of the document, which is 0 itself.
    std::uint32_t index() const { return index_; }
    /// By position; for nodes of one document.
    bool operator<(const Node& other) const { return index_ < other.index_; }
    /// Whether there are no children.
    bool empty() const;
    Iterator begin() const;
    Iterator end() const;
    /// The first child with this key, or a missing one.
    Node find(std::string_view name) const;

private:
    friend class Document;
    Node(const Document* document, std::uint32_t index) : document_(document), index_(index) {}

    const Document* document_ = nullptr;
    std::uint32_t index_ = 0;
};

class Node::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Node;
    using reference = Node;
    using pointer = void;
    using difference_type = std::ptrdiff_t;

    explicit Iterator(Node at) : at_(at) {}
    Node operator*() const { return at_; }
    Iterator& operator++();
    bool operator==(const Iterator& other) const { return at_.index_ == other.at_.index_; }

private:
    Node at_;
};

/// Nodes refer to it, so that it cannot be copied or moved.
class Document {
public:
    Document() = default;
    /// The same values as in the tree.
    explicit Document(const ptree& tree);
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Of a document that nothing was read into, an empty object.
    Node root() const { return {this, 0}; }
    /// Reads `text` as `json::parse` does. After an error the document is empty.
    std::optional<Fault> tryParse(std::string text, const Limits& limits = kUntrusted);
    void parse(std::string text, const std::string& name, const Limits& limits = kUntrusted);
    void parse(std::string text, const std::string& name, const HEXDiagnostic& place);
    /// Reads a document that `JSONWriter::text` or `json::write` has given: without limits, and whatever its texts are.
    void readOwn(std::string text);

private:
    friend class Node;
    friend class Node::Iterator;
    friend class NodeBuilder;

    /// A part of the source, or, from its end on, of the texts that do not stand there.
    struct Part {
        std::uint32_t at = 0, size = 0;
    };
    /// The children of a value follow it, up to `end`.
    struct Entry {
        Part name, text;
        std::uint32_t end = 0;
    };
    std::string_view view(Part part) const {
        return part.at < source_.size() ? std::string_view(source_).substr(part.at, part.size)
                                        : std::string_view(decoded_).substr(part.at - source_.size(), part.size);
    }
    Part add(std::string_view text);

    std::string source_, decoded_;
    std::vector<Entry> entries_{Entry{{}, {}, 1}};
};

inline std::string_view Node::name() const {
    return document_ ? document_->view(document_->entries_[index_].name) : std::string_view();
}
inline std::string_view Node::text() const {
    return document_ ? document_->view(document_->entries_[index_].text) : std::string_view();
}
inline bool Node::empty() const { return !document_ || document_->entries_[index_].end == index_ + 1; }
inline Node::Iterator Node::begin() const { return Iterator({document_, index_ + 1}); }
inline Node::Iterator Node::end() const {
    return Iterator({document_, document_ ? document_->entries_[index_].end : index_ + 1});
}
inline Node::Iterator& Node::Iterator::operator++() {
    at_.index_ = at_.document_->entries_[at_.index_].end;
    return *this;
}

/// Finds the children of a node by different names, and those at once that stand in the order of the calls.
class Finder {
public:
    explicit Finder(const Node& node) : node_(node), next_(node.begin()), end_(node.end()) {}
    /// Of duplicates the first: before `next_` stand only children that were found by other names.
    Node find(std::string_view name) {
        if (next_ == end_ || (*next_).name() != name) return node_.find(name);
        const Node found = *next_;
        ++next_;
        return found;
    }

private:
    const Node node_;
    Node::Iterator next_;
    const Node::Iterator end_;
};

/// Fills `tree` with the values of the node.
void copy(const Node& node, ptree& tree);

}  // namespace json
