#include "platform/JSONWriter.h"

#include <boost/property_tree/json_parser/error.hpp>
#include <mutex>
#include <ostream>
#include <utility>

#include "json/DocumentText.h"
#include "json/JsonText.h"
#include "msg/Budget.h"

namespace teq_platform {

using boost::property_tree::json_parser::json_parser_error;
using json::DocumentText;

namespace {

std::unique_ptr<DocumentText> newText() {
    auto text = std::make_unique<DocumentText>();
    text->open(false);
    return text;
}

}  // namespace

JSONWriter::JSONWriter() = default;
JSONWriter::~JSONWriter() = default;
JSONWriter::JSONWriter(JSONWriter&& other) { *this = std::move(other); }

JSONWriter::JSONWriter(const JSONWriter& other) {
    if (other.tree_)
        tree_ = std::make_unique<ptree>(*other.tree_);
    else if (!other.empty())
        copyItems_(other);
}

JSONWriter& JSONWriter::operator=(const JSONWriter& other) {
    if (this != &other) *this = JSONWriter(other);
    return *this;
}

JSONWriter& JSONWriter::operator=(JSONWriter&& other) {
    if (this == &other) return *this;
    prepare_();
    other.prepare_();
    if (isOwn_() && other.isOwn_()) {
        take_(std::move(other.own_), other.depth_);
        tree_ = std::move(other.tree_);
        other.text_ = nullptr;
    } else {  // an open child
        getTree().swap(other.getTree());
    }
    return *this;
}

void JSONWriter::take_(std::unique_ptr<DocumentText> own, std::size_t depth) {
    own_ = std::move(own);
    text_ = own_.get();
    start_ = 1;
    firstKey_ = 0;
    depth_ = depth;
}

/// Copies what the other one wrote, without its open child.
void JSONWriter::copyItems_(const JSONWriter& other) {
    auto own = newText();
    own->addItems(other.items_(), other.depth_, other.depth_);
    const auto& keys = other.text_->keys;
    for (std::size_t i = other.firstKey_; i < (other.child_ ? other.childKeys_ : keys.size()); ++i)
        own->keys.push_back({keys[i].at - other.start_ + 1, keys[i].mark});
    take_(std::move(own), other.depth_);
}

/// Before each change: whoever writes here while a child is open expects that the child does not notice.
void JSONWriter::prepare_() {
    view_.reset();
    if (!child_) return;
    child_->prepare_();
    if (child_->text_ == text_) child_->copyItems_(*child_);
    text_->cut(childAt_);
    text_->keys.resize(childKeys_);
    child_ = nullptr;
}

std::string_view JSONWriter::items_() const {
    return text_ ? text_->part(start_, child_ ? childAt_ : text_->size()) : std::string_view();
}

bool JSONWriter::isList_() const { return text_ && (child_ ? childKeys_ : text_->keys.size()) == firstKey_; }

DocumentText& JSONWriter::textOrNew_() {
    if (!text_) take_(newText(), 1);
    return *text_;
}

bool JSONWriter::empty() const { return tree_ ? tree_->empty() : items_().empty(); }

ptree& JSONWriter::getTree() {
    prepare_();
    if (!tree_) {
        auto tree = std::make_unique<ptree>();
        json::addTo(*tree, items_());
        clear_();
        tree_ = std::move(tree);
    }
    return *tree_;
}

const ptree& JSONWriter::getTree() const {
    if (tree_) return *tree_;
    static std::mutex mutex;  // two threads may read one writer
    const std::lock_guard lock(mutex);
    if (!view_) {
        auto tree = std::make_unique<ptree>();
        json::addTo(*tree, items_());
        view_ = std::move(tree);
    }
    return *view_;
}

void JSONWriter::clear_() {
    if (text_ && !isOwn_()) {
        text_->cut(start_);
        text_->keys.resize(firstKey_);
    }
    own_.reset();
    text_ = nullptr;
    tree_.reset();
}

std::string JSONWriter::text() const {
    if (tree_) return json::write(*tree_);
    if (isList_()) return json::write(getTree());  // as the document, it is an object with the key ""
    DocumentText moved;
    std::string_view items = items_();
    if (depth_ != 1) {
        moved.addItems(items, depth_, 1);
        items = moved.part(0, moved.size());
    }
    std::string text;
    text.reserve(items.size() + 4);
    return text.append("{").append(items).append("\n}\n");
}

std::unique_ptr<char[]> JSONWriter::takeText() {
    prepare_();
    if (!text_ || !isOwn_() || depth_ != 1 || isList_()) {
        text::CharBuffer copy;
        copy += text();
        clear_();
        return copy.take();
    }
    text_->closeDocument();
    auto bytes = text_->take();
    clear_();
    return bytes;
}

void JSONWriter::write(std::ostream& out) const {
    out << text() << std::flush;
    if (!out.good()) BOOST_PROPERTY_TREE_THROW(json_parser_error("write error", "", 0));
}

ptree& JSONWriter::append_(const std::string& key) {
    Budget::spend(Cost::nodes);
    return getTree().push_back({key, ptree()})->second;
}

/// True as well if there are too many keys to search.
bool JSONWriter::hasKey_(std::string_view key) const {
    constexpr std::size_t kMaxKeys = 128;
    if (!text_) return false;
    const auto& keys = text_->keys;
    if (keys.size() - firstKey_ > kMaxKeys) return true;
    const std::uint32_t mark = DocumentText::markOf(key);
    for (std::size_t i = firstKey_; i < keys.size(); ++i)
        if (keys[i].mark == mark && text_->hasKey(keys[i].at, key)) return true;
    return false;
}

void JSONWriter::beginItem_(DocumentText& text, std::string_view key) {
    const bool isFirst = text.size() == start_;
    key.empty() ? text.beginItem(depth_, isFirst) : text.beginItem(depth_, isFirst, key);
}

bool JSONWriter::addValue_(std::string_view key, std::string_view value, bool isNew) {
    prepare_();
    if (tree_ || (!isNew && hasKey_(key))) return false;
    Budget::spend(Cost::nodes);
    DocumentText& text = textOrNew_();
    const std::size_t at = text.size();
    beginItem_(text, key);
    text.addValue(value);
    if (!key.empty()) text.keys.push_back({at, DocumentText::markOf(key)});
    return true;
}

/// False, and nothing is added, if only a tree can hold it.
bool JSONWriter::addText_(std::string_view key, const JSONWriter& child) {
    DocumentText& text = textOrNew_();
    const std::size_t at = text.size();
    try {
        const bool isList = child.tree_ ? json::isList(*child.tree_) : child.isList_();
        beginItem_(text, key);
        text.open(isList);
        if (child.tree_) {
            json::expectNoValue(*child.tree_, "");
            text.addChildren(*child.tree_, isList, depth_ + 1);
        } else {
            text.addItems(child.items_(), child.depth_, depth_ + 1);
        }
        text.close(depth_ + 1, isList);
    } catch (const json_parser_error&) {
        text.cut(at);
        return false;
    } catch (...) {
        text.cut(at);
        throw;
    }
    if (!key.empty()) text.keys.push_back({at, DocumentText::markOf(key)});
    return true;
}

void JSONWriter::addChild_(const std::string& key, JSONWriter&& child) {
    prepare_();
    child.prepare_();
    if (tree_ || !addText_(key, child)) {
        append_(key).swap(child.getTree());
        return;
    }
    Budget::spend(Cost::nodes);
    child.clear_();
}

void JSONWriter::open_(JSONWriter& child, std::string_view key, bool isList) {
    prepare_();
    if (tree_) return;  // the child keeps its content until it is closed
    DocumentText& text = textOrNew_();
    const std::size_t at = text.size();
    beginItem_(text, key);
    text.open(isList);
    childAt_ = at;
    child.text_ = &text;
    child.start_ = text.size();
    child.depth_ = depth_ + 1;
    child.firstKey_ = childKeys_ = text.keys.size();
    child_ = &child;
}

void JSONWriter::close_(JSONWriter& child, std::string_view key) {
    child.prepare_();
    if (child_ != &child || child.text_ != text_) {
        drop_(child);
        if (!child.empty()) addChild_(std::string(key), std::move(child));
        return;
    }
    if (child.empty()) return drop_(child);
    Budget::spend(Cost::nodes);
    view_.reset();
    text_->close(child.depth_, text_->part(child.start_ - 1, child.start_) == "[");
    text_->keys.resize(childKeys_);
    if (!key.empty()) text_->keys.push_back({childAt_, DocumentText::markOf(key)});
    child.text_ = nullptr;
    child_ = nullptr;
}

void JSONWriter::drop_(JSONWriter& child) noexcept {
    if (child_ != &child) return;
    text_->cut(childAt_);
    text_->keys.resize(childKeys_);
    if (child.text_ == text_) child.text_ = nullptr;
    child_ = nullptr;
}

}  // namespace teq_platform
