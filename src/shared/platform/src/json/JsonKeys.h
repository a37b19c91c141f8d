#pragma once
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "json/JsonShape.h"
#include "platform/JSONWriter.h"
#include "text/HSTFwdIter.h"
#include "text/HSTStringUtils.h"

/// The keys of a record as a table: listed once, in output order, each with its member and its form. `toJSON` walks
/// the table, and so does the reader, for the keys that it reads.
///
///     using K = json::Keys<HTEQSystemClock>;
///     constexpr json::Key<HTEQSystemClock> kKeys[] = {
///         K::text<&HTEQSystemClock::getName, &HTEQSystemClock::setName>("name"),
///         K::number<&HTEQSystemClock::getId, &HTEQSystemClock::setId>("id"),
///     };
///     void HTEQSystemClock::toJSON(JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }
namespace json {

using teq_platform::JSONListWriter;
using teq_platform::JSONObjectWriter;
using ptree = boost::property_tree::ptree;

template <class T>
struct Key {
    const char* name;
    void (*write)(JSONObjectWriter& writer, const char* name, const T& record);
    /// Takes the text at the key, "" when the key is missing (unless `ifPresent`). Null for a key that is not read.
    void (*readText)(T& record, const std::string& text) = nullptr;
    /// Takes the node at the key, and is called only when it is there. Null for a key that is not read so.
    void (*readNode)(T& record, const ptree& node) = nullptr;
    bool ifPresent = false;
    bool required = false;      ///< reading throws the property tree's ptree_bad_path when the document lacks the key
    Form form = Form::unknown;  ///< what stands at the key in a document that was meant so
    Shapes (*inner)() = nullptr;
    std::string (*refusal)(const Key& key, const ptree& node) = nullptr;
};

/// The same row, read only when the document has the key.
template <class T>
constexpr Key<T> ifPresent(Key<T> key) {
    key.ifPresent = true;
    return key;
}

template <class T>
constexpr Key<T> required(Key<T> key) {
    key.required = true;
    return key;
}

/// The same row for a key whose form its maker cannot know.
template <class T>
constexpr Key<T> shaped(Key<T> key, Form form, Shapes (*inner)() = nullptr) {
    key.form = form;
    key.inner = inner;
    return key;
}

/// The same row for a key whose setter throws for some values. Reading into a fresh record tells which.
template <class T>
constexpr Key<T> refusing(Key<T> key) {
    key.refusal = [](const Key<T>& row, const ptree& node) -> std::string {
        T scratch;
        try {
            if (row.readText) row.readText(scratch, node.data());
            if (row.readNode) row.readNode(scratch, node);
        } catch (const std::exception& e) {
            return e.what();
        }
        return {};
    };
    return key;
}

/// What the reader looks at of a table's keys.
template <class T>
std::vector<Shape> shapesOf(std::span<const Key<T>> keys) {
    std::vector<Shape> shapes;
    for (const Key<T>& key : keys) {
        if (!key.readText && !key.readNode && !key.inner) continue;
        Shape shape{key.name, key.form, key.required, key.inner, nullptr};
        if (key.refusal) shape.refusal = [&key](const ptree& node) { return key.refusal(key, node); };
        shapes.push_back(std::move(shape));
    }
    return shapes;
}

template <class R, class C, class A>
std::remove_cvref_t<A> argumentOf(R (C::*)(A));

template <class T>
void writeKeys(JSONObjectWriter& writer, std::type_identity_t<std::span<const Key<T>>> keys, const T& record);
template <class T>
void readKeys(const ptree& node, std::type_identity_t<std::span<const Key<T>>> keys, T& record);
template <class T>
std::span<const Key<T>> keysOf();
template <class Source>
void addRecords(JSONObjectWriter& writer, const char* name, Source source);

/// The shapes of a class's own table, and of one that is named.
template <class T>
Shapes shapesOfRecord() {
    static const std::vector<Shape> shapes = shapesOf<T>(keysOf<T>());
    return shapes;
}
template <class T, const auto& Rows>
Shapes shapesOfRows() {
    static const std::vector<Shape> shapes = shapesOf<T>(std::span<const Key<T>>(Rows));
    return shapes;
}

/// The text at `key`, empty when it is not there.
inline const std::string& textAt(const ptree& node, const char* key) {
    static const std::string none;
    const auto at = node.find(key);
    return at != node.not_found() ? at->second.data() : none;
}

inline constexpr char kValueKey[] = "value";

template <const auto& ValueKey>
Shapes shapesOfPair() {
    static const Shape shapes[] = {{"name", Form::text}, {ValueKey, Form::text}};
    return shapes;
}

/// Makers of rows. `Get` and `Set` are member function pointers; without `Set` the key is written only.
template <class T>
struct Keys {
    /// Text as it stands, absent when empty.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> text(const char* name) {
        return scalar(
            name, [](JSONObjectWriter& w, const char* n, const T& r) { w.addKey(n, std::invoke(Get, r)); },
            textReader<Set>(), Form::text);
    }
    /// Decimal, always written.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> number(const char* name) {
        return scalar(
            name, [](JSONObjectWriter& w, const char* n, const T& r) { w.addKey(n, decimal(std::invoke(Get, r))); },
            numberReader<Set>(), Form::number);
    }
    /// Decimal, written when not 0.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> numberUnlessZero(const char* name) {
        return scalar(
            name,
            [](JSONObjectWriter& w, const char* n, const T& r) {
                if (const auto value = std::invoke(Get, r)) w.addKey(n, decimal(value));
            },
            numberReader<Set>(), Form::number);
    }
    /// "true" or "false", always written.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> flag(const char* name) {
        return scalar(
            name, [](JSONObjectWriter& w, const char* n, const T& r) { w.addKey(n, bool(std::invoke(Get, r))); },
            flagReader<Set>(), Form::flag);
    }
    /// "true", absent when false.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> flagWhenTrue(const char* name) {
        return scalar(
            name,
            [](JSONObjectWriter& w, const char* n, const T& r) {
                if (std::invoke(Get, r)) w.addKey(n, true);
            },
            flagReader<Set>(), Form::flag);
    }
    /// An object of further keys of the same record; absent when they write nothing.
    template <const auto& Rows>
    static constexpr Key<T> group(const char* name) {
        Key<T> key{name, [](JSONObjectWriter& w, const char* n, const T& r) {
                       JSONObjectWriter object;
                       object.shareNodesOf(w);
                       writeKeys<T>(object, Rows, r);
                       w.addKey(n, std::move(object));
                   }};
        key.readNode = [](T& r, const ptree& node) { readKeys<T>(node, Rows, r); };
        return shaped(key, Form::object, &shapesOfRows<T, Rows>);
    }
    /// Another record as an object. `Get` gives it for writing, `GetWritable` for reading by its own table.
    template <auto Get, auto GetWritable = nullptr>
    static constexpr Key<T> object(const char* name) {
        Key<T> key{name, [](JSONObjectWriter& w, const char* n, const T& r) {
                       w.addKey(n, static_cast<const teq_platform::JSONSerializable*>(&std::invoke(Get, r)));
                   }};
        if constexpr (!isNull<GetWritable>) {
            using Record = std::remove_cvref_t<std::invoke_result_t<decltype(GetWritable), T&>>;
            key = shaped(key, Form::object, &shapesOfRecord<Record>);
            key.readNode = [](T& r, const ptree& node) {
                readKeys(node, keysOf<Record>(), std::invoke(GetWritable, r));
            };
        }
        return key;
    }
    /// A list of records; absent when empty. `Items` gives a range of pointers, or an iterator that is to be deleted;
    /// `Add` makes the record that an item of the document is read into, by its own table.
    template <auto Items, auto Add = nullptr>
    static constexpr Key<T> objects(const char* name) {
        Key<T> key{name,
                   [](JSONObjectWriter& w, const char* n, const T& r) { addRecords(w, n, std::invoke(Items, r)); }};
        if constexpr (!isNull<Add>) {
            using Record = std::remove_cvref_t<decltype(*std::invoke(Add, std::declval<T&>()))>;
            key = shaped(key, Form::list, &shapesOfRecord<Record>);
            key.readNode = [](T& r, const ptree& node) {
                for (const auto& [none, item] : node) readKeys(item, keysOf<Record>(), *std::invoke(Add, r));
            };
        }
        return key;
    }
    /// A list of texts; empty ones are left out.
    template <auto Get, auto Add = nullptr>
    static constexpr Key<T> texts(const char* name) {
        Key<T> key{name, [](JSONObjectWriter& w, const char* n, const T& r) { w.addKey(n, std::invoke(Get, r)); }};
        if constexpr (!isNull<Add>) {
            key = shaped(key, Form::texts);
            key.readNode = [](T& r, const ptree& node) {
                for (const auto& [none, item] : node) std::invoke(Add, r, item.data());
            };
        }
        return key;
    }
    /// A map as a list of objects with "name" and "value" (or another key in its place).
    template <auto Get, auto Add = nullptr, const auto& ValueKey = kValueKey>
    static constexpr Key<T> pairs(const char* name) {
        Key<T> key{name, [](JSONObjectWriter& w, const char* n, const T& r) {
                       JSONListWriter list;
                       list.shareNodesOf(w);
                       for (const auto& [first, second] : std::invoke(Get, r)) {
                           JSONObjectWriter item;
                           item.shareNodesOf(list);
                           item.addKey("name", first);
                           item.addKey(ValueKey, second);
                           list.addItem(std::move(item));
                       }
                       w.addKey(n, std::move(list));
                   }};
        if constexpr (!isNull<Add>) {
            key = shaped(key, Form::list, &shapesOfPair<ValueKey>);
            key.readNode = [](T& r, const ptree& node) {
                for (const auto& [none, item] : node)
                    std::invoke(Add, r, textAt(item, "name"), textAt(item, ValueKey));
            };
        }
        return key;
    }

private:
    template <auto F>
    static constexpr bool isNull = std::is_same_v<decltype(F), std::nullptr_t>;

    using ReadText = void (*)(T& record, const std::string& text);

    static constexpr Key<T> scalar(const char* name, decltype(Key<T>::write) write, ReadText read, Form form) {
        return shaped(Key<T>{name, write, read}, form);
    }

    /// A char type is a number here.
    template <class N>
    static std::string decimal(N value) {
        return std::to_string(+value);
    }

    template <auto Set>
    static constexpr ReadText textReader() {
        if constexpr (isNull<Set>)
            return nullptr;
        else
            return [](T& r, const std::string& text) { std::invoke(Set, r, text); };
    }
    template <auto Set>
    static constexpr ReadText numberReader() {
        if constexpr (isNull<Set>)
            return nullptr;
        else
            return [](T& r, const std::string& text) {
                std::invoke(Set, r, static_cast<decltype(argumentOf(Set))>(HSTStringUtils::toNumber(text)));
            };
    }
    template <auto Set>
    static constexpr ReadText flagReader() {
        if constexpr (isNull<Set>)
            return nullptr;
        else
            return [](T& r, const std::string& text) { std::invoke(Set, r, HSTStringUtils::iequals(text, "true")); };
    }
};

template <class T>
void writeKeys(JSONObjectWriter& writer, std::type_identity_t<std::span<const Key<T>>> keys, const T& record) {
    for (const Key<T>& key : keys)
        if (key.write) key.write(writer, key.name, record);
}

/// Reads one key of `node`, if it is read at all. Of duplicates the first counts.
template <class T>
void readKey(const ptree& node, const Key<T>& key, std::type_identity_t<T>& record) {
    static const std::string none;
    if (!key.readText && !key.readNode) return;
    const auto at = node.find(key.name);
    const bool found = at != node.not_found();
    if (!found && key.required) node.get_child(key.name);  // throws
    if (found && key.readNode) key.readNode(record, at->second);
    if (key.readText && (found || !key.ifPresent)) key.readText(record, found ? at->second.data() : none);
}

/// Reads the keys of the table; unknown keys of `node` are ignored.
template <class T>
void readKeys(const ptree& node, std::type_identity_t<std::span<const Key<T>>> keys, T& record) {
    for (const Key<T>& key : keys) readKey(node, key, record);
}

/// The table of a record's class, for its reader; each class specialises it beside its `toJSON`.
template <class T>
std::span<const Key<T>> keysOf();

/// A list of objects, each written by its own `toJSON`; absent when the list is empty. `range` holds pointers.
template <class Range>
void addList(JSONObjectWriter& writer, const char* name, const Range& range) {
    JSONListWriter list;
    list.shareNodesOf(writer);
    for (const auto* item : range) list.addItem(static_cast<const teq_platform::JSONSerializable*>(item));
    writer.addKey(name, std::move(list));
}

/// The same for a range of pointers or an iterator of the model, which is deleted.
template <class Source>
void addRecords(JSONObjectWriter& writer, const char* name, Source source) {
    if constexpr (std::is_pointer_v<Source>) {
        const std::unique_ptr<std::remove_pointer_t<Source>> it(source);
        JSONListWriter list;
        list.shareNodesOf(writer);
        while (it->hasNext()) list.addItem(static_cast<const teq_platform::JSONSerializable*>(it->next()));
        writer.addKey(name, std::move(list));
    } else {
        addList(writer, name, source);
    }
}

}  // namespace json
