#include "platform/JSONWriter.h"

#include <boost/property_tree/json_parser/error.hpp>
#include <mutex>
#include <ostream>
#include <utility>

#include "json/JsonText.h"
#include "json/ValueStream.h"
#include "msg/Budget.h"

namespace teq_platform {

using json::ValueStream;

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
        own_ = std::move(other.own_);
        stream_ = own_.get();
        start_ = firstKey_ = 0;
        tree_ = std::move(other.tree_);
        other.stream_ = nullptr;
    } else {  // an open child
        getTree().swap(other.getTree());
    }
    return *this;
}

/// Copies what the other one wrote, without its open child.
void JSONWriter::copyItems_(const JSONWriter& other) {
    auto own = std::make_unique<ValueStream>();
    own->addItems(other.items_());
    const auto& keys = other.stream_->keys;
    for (std::size_t i = other.firstKey_; i < (other.child_ ? other.childKeys_ : keys.size()); ++i)
        own->keys.push_back({keys[i].at - other.start_, keys[i].mark});
    own_ = std::move(own);
    stream_ = own_.get();
    start_ = firstKey_ = 0;
}

/// Before each change: whoever writes here while a child is open expects that the child does not notice.
void JSONWriter::prepare_() {
    view_.reset();
    if (!child_) return;
    child_->prepare_();
    if (child_->stream_ == stream_) child_->copyItems_(*child_);
    stream_->cut(childAt_);
    stream_->keys.resize(childKeys_);
    child_ = nullptr;
}

std::string_view JSONWriter::items_() const {
    return stream_ ? stream_->items(start_, child_ ? childAt_ : stream_->size()) : std::string_view();
}

ValueStream& JSONWriter::streamOrNew_() {
    if (!stream_) {
        own_ = std::make_unique<ValueStream>();
        stream_ = own_.get();
        start_ = firstKey_ = 0;
    }
    return *stream_;
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
    if (stream_ && !isOwn_()) {
        stream_->cut(start_);
        stream_->keys.resize(firstKey_);
    }
    own_.reset();
    stream_ = nullptr;
    tree_.reset();
}

std::string JSONWriter::text() const { return tree_ ? json::write(*tree_) : json::writeItems(items_()); }

std::unique_ptr<char[]> JSONWriter::cText() const {
    text::CharBuffer bytes;
    if (tree_)
        bytes += json::write(*tree_);
    else
        bytes = json::writeItemsToBuffer(items_());
    return bytes.take();
}

void JSONWriter::write(std::ostream& out) const {
    out << text() << std::flush;
    if (!out.good())
        BOOST_PROPERTY_TREE_THROW(boost::property_tree::json_parser::json_parser_error("write error", "", 0));
}

ptree& JSONWriter::append_(const std::string& key) {
    Budget::spend(Cost::nodes);
    return getTree().push_back({key, ptree()})->second;
}

/// True as well if there are too many keys to search.
bool JSONWriter::hasKey_(std::string_view key) const {
    constexpr std::size_t kMaxKeys = 128;
    if (!stream_) return false;
    const auto& keys = stream_->keys;
    if (keys.size() - firstKey_ > kMaxKeys) return true;
    const std::uint32_t mark = ValueStream::markOf(key);
    for (std::size_t i = firstKey_; i < keys.size(); ++i)
        if (keys[i].mark == mark && stream_->keyAt(keys[i].at) == key) return true;
    return false;
}

bool JSONWriter::addValue_(std::string_view key, std::string_view value, bool isNew) {
    prepare_();
    if (tree_ || !ValueStream::fits(key) || !ValueStream::fits(value) || (!isNew && hasKey_(key))) return false;
    Budget::spend(Cost::nodes);
    Budget::spend(Cost::text, key.size() + value.size());
    ValueStream& stream = streamOrNew_();
    const std::size_t at = stream.size();
    stream.add(ValueStream::Kind::value, key, value);
    if (!key.empty()) stream.keys.push_back({at, ValueStream::markOf(key)});
    return true;
}

void JSONWriter::addChild_(const std::string& key, JSONWriter&& child) {
    prepare_();
    child.prepare_();
    if (tree_ || !ValueStream::fits(key)) {
        append_(key).swap(child.getTree());
        return;
    }
    Budget::spend(Cost::nodes);
    ValueStream& stream = streamOrNew_();
    const std::size_t at = stream.size();
    if (child.tree_)
        stream.addTree(key, *child.tree_);
    else
        stream.addItemsBelow(key, child.items_());
    if (!key.empty()) stream.keys.push_back({at, ValueStream::markOf(key)});
    child.clear_();
}

void JSONWriter::open_(JSONWriter& child, std::string_view key, bool isList) {
    prepare_();
    if (tree_ || !ValueStream::fits(key)) return;  // the child keeps its content until it is closed
    ValueStream& stream = streamOrNew_();
    childAt_ = stream.size();
    stream.add(isList ? ValueStream::Kind::list : ValueStream::Kind::object, key);
    child.stream_ = &stream;
    child.start_ = stream.size();
    child.firstKey_ = childKeys_ = stream.keys.size();
    child_ = &child;
}

void JSONWriter::close_(JSONWriter& child, std::string_view key) {
    child.prepare_();
    if (child_ != &child || child.stream_ != stream_) {
        drop_(child);
        if (!child.empty()) addChild_(std::string(key), std::move(child));
        return;
    }
    if (child.empty()) return drop_(child);
    Budget::spend(Cost::nodes);
    view_.reset();
    stream_->addEnd();
    stream_->keys.resize(childKeys_);
    if (!key.empty()) stream_->keys.push_back({childAt_, ValueStream::markOf(key)});
    child.stream_ = nullptr;
    child_ = nullptr;
}

void JSONWriter::drop_(JSONWriter& child) noexcept {
    if (child_ != &child) return;
    stream_->cut(childAt_);
    stream_->keys.resize(childKeys_);
    if (child.stream_ == stream_) child.stream_ = nullptr;
    child_ = nullptr;
}

}  // namespace teq_platform
