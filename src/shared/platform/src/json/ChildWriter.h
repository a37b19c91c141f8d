#pragma once
#include "platform/JSONListWriter.h"
#include "platform/JSONObjectWriter.h"

namespace json {

/// A writer whose content goes directly below a key of another writer: nothing is added if it writes nothing, or
/// without `add`. The other one must live as long, and `key` too, which is not a path; an item of a list has none.
template <class Writer>
class ChildWriter {
public:
    explicit ChildWriter(teq_platform::JSONWriter& parent, std::string_view key = {}) : parent_(parent), key_(key) {
        parent_.open_(writer_, key_, std::is_same_v<Writer, teq_platform::JSONListWriter>);
    }
    ~ChildWriter() { parent_.drop_(writer_); }
    ChildWriter(const ChildWriter&) = delete;
    ChildWriter& operator=(const ChildWriter&) = delete;

    Writer& operator*() { return writer_; }
    Writer* operator->() { return &writer_; }
    void add() { parent_.close_(writer_, key_); }

private:
    teq_platform::JSONWriter& parent_;
    const std::string_view key_;
    Writer writer_;
};

/// Adds a value to a writer that does not have the key, which is not a path. False if only a tree can take it.
inline bool addNew(teq_platform::JSONWriter& writer, std::string_view key, std::string_view value) {
    return writer.addValue_(key, value, true);
}

using ObjectIn = ChildWriter<teq_platform::JSONObjectWriter>;
using ListIn = ChildWriter<teq_platform::JSONListWriter>;

}  // namespace json
