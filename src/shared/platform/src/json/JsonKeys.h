#pragma once
#include <functional>
#include <span>
#include <string>
#include <type_traits>

#include "platform/JSONWriter.h"
#include "text/HSTStringUtils.h"

/// The keys of a record as a table: listed once, in output order, each with its member and its form. `toJSON` walks the
/// table, and so does the reader, for the keys that it reads.
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
};

/// The same row, read only when the document has the key.
template <class T>
constexpr Key<T> ifPresent(Key<T> key) {
    key.ifPresent = true;
    return key;
}

template <class R, class C, class A>
std::remove_cvref_t<A> argumentOf(R (C::*)(A));

/// Makers of rows. `Get` and `Set` are member function pointers; without `Set` the key is written only.
template <class T>
struct Keys {
    /// Text as it stands, absent when empty.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> text(const char* name) {
        return {name, [](JSONObjectWriter& w, const char* n, const T& r) { w.addKey(n, std::invoke(Get, r)); },
                textReader<Set>()};
    }
    /// Decimal, always written.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> number(const char* name) {
        return {name, [](JSONObjectWriter& w, const char* n, const T& r) { w.addKey(n, decimal(std::invoke(Get, r))); },
                numberReader<Set>()};
    }
    /// Decimal, written when not 0.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> numberUnlessZero(const char* name) {
        return {name,
                [](JSONObjectWriter& w, const char* n, const T& r) {
                    if (const auto value = std::invoke(Get, r)) w.addKey(n, decimal(value));
                },
                numberReader<Set>()};
    }
    /// "true" or "false", always written.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> flag(const char* name) {
        return {name, [](JSONObjectWriter& w, const char* n, const T& r) { w.addKey(n, bool(std::invoke(Get, r))); },
                flagReader<Set>()};
    }
    /// "true", absent when false.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> flagWhenTrue(const char* name) {
        return {name,
                [](JSONObjectWriter& w, const char* n, const T& r) {
                    if (std::invoke(Get, r)) w.addKey(n, true);
                },
                flagReader<Set>()};
    }

private:
    template <class N>
    static std::string decimal(N value) { return std::to_string(+value); }  // + : a char type is a number here

    template <auto Set>
    static constexpr auto textReader() -> void (*)(T&, const std::string&) {
        if constexpr (std::is_same_v<decltype(Set), std::nullptr_t>) return nullptr;
        else return [](T& r, const std::string& text) { std::invoke(Set, r, text); };
    }
    template <auto Set>
    static constexpr auto numberReader() -> void (*)(T&, const std::string&) {
        if constexpr (std::is_same_v<decltype(Set), std::nullptr_t>) return nullptr;
        else return [](T& r, const std::string& text) {
            std::invoke(Set, r, static_cast<decltype(argumentOf(Set))>(HSTStringUtils::toNumber(text)));
        };
    }
    template <auto Set>
    static constexpr auto flagReader() -> void (*)(T&, const std::string&) {
        if constexpr (std::is_same_v<decltype(Set), std::nullptr_t>) return nullptr;
        else return [](T& r, const std::string& text) { std::invoke(Set, r, HSTStringUtils::iequals(text, "true")); };
    }
};

template <class T>
void writeKeys(JSONObjectWriter& writer, std::type_identity_t<std::span<const Key<T>>> keys, const T& record) {
    for (const Key<T>& key : keys)
        if (key.write) key.write(writer, key.name, record);
}

/// Reads the keys of the table that are read at all; unknown keys of `node` are ignored. Of duplicates the first counts.
template <class T>
void readKeys(const ptree& node, std::type_identity_t<std::span<const Key<T>>> keys, T& record) {
    static const std::string none;
    for (const Key<T>& key : keys) {
        if (!key.readText && !key.readNode) continue;
        const auto at = node.find(key.name);
        const bool found = at != node.not_found();
        if (found && key.readNode) key.readNode(record, at->second);
        if (key.readText && (found || !key.ifPresent)) key.readText(record, found ? at->second.data() : none);
    }
}

/// The table of a record's class, for its reader; each class specialises it beside its `toJSON`.
template <class T>
std::span<const Key<T>> keysOf();

/// A list of objects, each written by its own `toJSON`; absent when the list is empty. `range` holds pointers.
template <class Range>
void addList(JSONObjectWriter& writer, const char* name, const Range& range) {
    JSONListWriter list;
    for (const auto* item : range) list.addItem(static_cast<const teq_platform::JSONSerializable*>(item));
    writer.addKey(name, std::move(list));
}

}  // namespace json
