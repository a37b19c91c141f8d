#pragma once
#include <boost/property_tree/ptree.hpp>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "text/ZrApi.h"

namespace teq_platform {
class JSONWriter;
}

namespace json {
class DocumentText;
template <class Writer>
class ChildWriter;
bool addNew(teq_platform::JSONWriter& writer, std::string_view key, std::string_view value);
}  // namespace json

namespace teq_platform {

using ptree = boost::property_tree::ptree;

/// A document in the making: what a property tree holds in which every value is a text and an array is a node whose
/// children have empty keys. It becomes such a tree when one is asked for, or when a key is given that is a path or that
/// exists; until then it is the text itself, which takes less time and memory.
class ZR_API JSONWriter {
public:
    JSONWriter();
    JSONWriter(const JSONWriter& other);
    JSONWriter(JSONWriter&& other);
    JSONWriter& operator=(const JSONWriter& other);
    JSONWriter& operator=(JSONWriter&& other);
    ~JSONWriter();

    /// The tree, which is this writer's content from then on.
    ptree& getTree();
    /// A tree of the content, valid until the writer changes.
    const ptree& getTree() const;
    static ptree& getOtherTree(JSONWriter& other) { return other.getTree(); }
    static const ptree& getOtherTree(const JSONWriter& other) { return other.getTree(); }

    /// True if the tree has no children, whatever value it holds itself.
    bool empty() const;

    /// Writes the document: four blanks per level, every value in quotes, a final newline. Throws the property tree's
    /// `json_parser_error` if a node has both a value and children, before anything is written, and if the stream has
    /// failed.
    void write(std::ostream& out) const;
    /// What `write` writes.
    std::string text() const;
    /// The same with a final NUL; afterwards the writer is empty.
    std::unique_ptr<char[]> takeText();

protected:
    /// Adds the value at the end. False, and nothing is added, if only a tree can take it.
    bool addValue_(std::string_view key, std::string_view value, bool isNew);
    /// Adds the content of `child`, which has some, below `key`, which is not a path.
    void addChild_(const std::string& key, JSONWriter&& child);
    /// A new node without a value at the end of the tree.
    ptree& append_(const std::string& key);

private:
    template <class Writer>
    friend class json::ChildWriter;
    friend bool json::addNew(JSONWriter& writer, std::string_view key, std::string_view value);
    void open_(JSONWriter& child, std::string_view key, bool isList);
    void close_(JSONWriter& child, std::string_view key);
    void drop_(JSONWriter& child) noexcept;

    void prepare_();
    void take_(std::unique_ptr<json::DocumentText> own, std::size_t depth);
    void copyItems_(const JSONWriter& other);
    void clear_();
    bool isOwn_() const { return text_ == own_.get(); }
    /// Whether the items have no keys.
    bool isList_() const;
    bool hasKey_(std::string_view key) const;
    std::string_view items_() const;
    json::DocumentText& textOrNew_();
    void beginItem_(json::DocumentText& text, std::string_view key);
    bool addText_(std::string_view key, const JSONWriter& child);

    std::unique_ptr<json::DocumentText> own_;
    json::DocumentText* text_ = nullptr;  ///< null: empty, or a tree; another's for a child of it that is open
    std::size_t start_ = 0;               ///< of the items in the text
    std::size_t depth_ = 1;               ///< of the items
    std::size_t firstKey_ = 0;            ///< of this writer's in the text's keys
    JSONWriter* child_ = nullptr;         ///< the open one, whose items follow
    std::size_t childAt_ = 0;             ///< where its item begins
    std::size_t childKeys_ = 0;           ///< the same in the text's keys
    std::unique_ptr<ptree> tree_;
    mutable std::unique_ptr<const ptree> view_;  ///< what the const `getTree` made of the items
};

}  // namespace teq_platform

// Programs that include only this header expect all three writers.
#include "platform/JSONListWriter.h"
#include "platform/JSONObjectWriter.h"
