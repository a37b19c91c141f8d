#pragma once
#include <concepts>
#include <string>

#include "platform/JSONSerializable.h"
#include "platform/JSONWriter.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// Fills its tree with named children, in the order of the calls. A key is a path with "." between levels; it is
/// followed as by the property tree's own `put` and `add_child`, empty parts included.
class ZR_API JSONObjectWriter : public JSONWriter {
public:
    /// Adds nothing if `value` is empty. Replaces the value in place if the path exists.
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
    /// Adds a copy of the child's tree; nothing if it is empty. An existing key is added again.
    void addKey(const std::string& key, const JSONWriter& child);
    /// The same without a copy; `child` is left empty.
    void addKey(const std::string& key, JSONWriter&& child);
    /// Adds what the object writes as an object under `key`; nothing if it is null or writes nothing.
    void addKey(const std::string& key, const JSONSerializable* object);
    /// Adds a copy of the tree; nothing if it has no children.
    void addKey(const std::string& key, const ptree& tree);
    /// A list of the texts that are not empty; nothing if there are none.
    void addKey(const std::string& key, const HSTVector<std::string>& values);
    /// The same, for calls that name the type: `addKey<std::string>(key, values)`.
    template <std::same_as<std::string> T>
    void addKey(const std::string& key, const HSTVector<T>& values) {
        addKey(key, values);
    }

    /// Lets the object write its keys directly into this writer.
    void writeObject(const JSONSerializable* object);
    void writeObject(const JSONSerializable& object) { object.toJSON(*this); }

private:
    void put_(const std::string& key, const std::string& value);
    ptree& addNode_(const std::string& path);
};

}  // namespace teq_platform
