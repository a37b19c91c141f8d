#pragma once
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "json/ChildWriter.h"
#include "json/JsonNode.h"
#include "json/JsonShape.h"
#include "platform/JSONWriter.h"
#include "text/HSTFwdIter.h"
#include "text/HSTStringUtils.h"

/// The keys of a record as a table: listed once, in output order, each with its member and its form. `toJSON` walks
/// the table, and so does the reader, for the keys that it reads. Rows are data; writing and reading are ordinary
/// functions over them.
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
using teq_platform::JSONSerializable;

class Rows;

// The value of a key, by kind: how it is written from a record and read into it. The key is not read if the function
// for reading is null. Only `Custom` knows the nodes of a document.

struct Scalar {
    /// The text; an empty one is not written. `buffer` may hold it.
    const std::string& (*get)(const void* record, std::string& buffer);
    void (*set)(void* record, const std::string& text);
};
/// An object of further keys of the same record; absent when they write nothing.
struct Group {
    Rows (*rows)();
};
struct Object {
    const JSONSerializable& (*get)(const void* record);
    void* (*writable)(void* record);
    Rows (*rows)();
};
/// A list of records; absent when empty.
struct Objects {
    void (*each)(const void* record, const std::function<void(const JSONSerializable*)>& use);
    void* (*add)(void* record);
    Rows (*rows)();
    std::size_t size = 0;  ///< of an item in memory
};
/// A list of texts; empty ones are left out.
struct Texts {
    HSTVector<std::string> (*get)(const void* record);
    void (*add)(void* record, const std::string& text);
};
/// A map as a list of objects with "name" and `valueKey`.
struct Pairs {
    const std::map<std::string, std::string>& (*get)(const void* record);
    void (*add)(void* record, const std::string& name, const std::string& value);
    const char* valueKey;
};
struct Custom {
    void (*write)(JSONObjectWriter& writer, const char* name, const void* record);
    void (*read)(void* record, const Node& node);
};

/// The functions take a record of the type that the row was made for.
struct Row {
    const char* name;
    std::variant<Scalar, Group, Object, Objects, Texts, Pairs, Custom> content;
    Form form = Form::unknown;  ///< the kind of value that a correct document has at the key
    Shapes (*inner)() = nullptr;
    bool (*isWritten)(const void* record) = nullptr;  ///< null: always
    bool ifPresent = false;    ///< a missing key leaves the record alone; else it reads as `missing`
    const char* missing = "";  ///< of a scalar
    bool required = false;     ///< reading throws the property tree's ptree_bad_path when the document lacks the key
    unsigned char turn = 0;    ///< for a record whose keys are read in an order of their own
    void (*tryRead)(const Row& row, const Node& node) = nullptr;  ///< reads into a fresh record
    std::string (*numberOf)(const std::string& text) = nullptr;   ///< what a number is read as, in decimal

    bool isRead() const;
};

template <class T>
struct Key : Row {};

/// A table of any record.
class Rows {
public:
    template <class T>
    Rows(std::span<const Key<T>> keys)
        : keys_(keys.data()), size_(keys.size()), at_([](const void* first, std::size_t index) -> const Row& {
              return static_cast<const Key<T>*>(first)[index];
          }) {}
    std::size_t size() const { return size_; }
    const Row& operator[](std::size_t index) const { return at_(keys_, index); }

private:
    const void* keys_;
    std::size_t size_;
    const Row& (*at_)(const void* first, std::size_t index);
};

void writeRows(JSONObjectWriter& writer, const Rows& rows, const void* record);
/// Reads the keys of the table; unknown keys of `node` are ignored.
void readRows(const Node& node, const Rows& rows, void* record);
/// Reads one key of `node`, if it is read at all. Of duplicates the first counts.
void readRow(const Node& node, const Row& row, void* record);
/// Reads the value of the key.
void readValue(const Node& value, const Row& row, void* record);
/// What the reader looks at of a table's keys. The rows must stay where they are.
std::vector<Shape> shapesOf(const Rows& rows);

/// The text at `key`, empty if the key is missing.
const std::string& textAt(const ptree& node, const char* key);
std::string_view textAt(const Node& node, const char* key);

/// The table of a record's class; each class specialises it beside its `toJSON`.
template <class T>
std::span<const Key<T>> keysOf();

template <class T>
void writeKeys(JSONObjectWriter& writer, std::type_identity_t<std::span<const Key<T>>> keys, const T& record) {
    writeRows(writer, keys, &record);
}
template <class T>
void readKeys(const Node& node, std::type_identity_t<std::span<const Key<T>>> keys, T& record) {
    readRows(node, keys, &record);
}
/// The same for callers that have a tree.
template <class T>
void readKeys(const ptree& tree, std::type_identity_t<std::span<const Key<T>>> keys, T& record) {
    const Document document(tree);
    readRows(document.root(), keys, &record);
}

/// The shapes of a class's own table, and of one that is named.
template <class T>
Shapes shapesOfRecord() {
    static const std::vector<Shape> shapes = shapesOf(keysOf<T>());
    return shapes;
}
template <class T, const auto& Table>
Shapes shapesOfRows() {
    static const std::vector<Shape> shapes = shapesOf(std::span<const Key<T>>(Table));
    return shapes;
}

inline constexpr char kValueKey[] = "value";

template <const auto& ValueKey>
Shapes shapesOfPair() {
    static const Shape shapes[] = {{"name", Form::text}, {ValueKey, Form::text}};
    return shapes;
}

/// The same row, read only when the document has the key.
template <class T>
constexpr Key<T> ifPresent(Key<T> key) {
    key.ifPresent = true;
    return key;
}

/// The same row, read from an empty node when the document lacks the key.
template <class T>
constexpr Key<T> evenMissing(Key<T> key) {
    key.ifPresent = false;
    return key;
}

/// The same row of a scalar, for which a missing key reads as `text`.
template <class T>
constexpr Key<T> orElse(Key<T> key, const char* text) {
    key.missing = text;
    return key;
}

template <class T>
constexpr Key<T> required(Key<T> key) {
    key.required = true;
    return key;
}

/// The same row, written only for records of which `Is` is true.
template <auto Is, class T>
constexpr Key<T> when(Key<T> key) {
    key.isWritten = [](const void* record) {
        return static_cast<bool>(std::invoke(Is, *static_cast<const T*>(record)));
    };
    return key;
}

/// The same row for a key whose setter throws for some values; these are found by reading into a fresh record.
template <class T>
constexpr Key<T> refusing(Key<T> key) {
    key.tryRead = [](const Row& row, const Node& node) {
        T scratch;
        readValue(node, row, &scratch);
    };
    return key;
}

namespace detail {

template <class R, class C, class A>
std::remove_cvref_t<A> argumentOf(R (C::*)(A));

template <auto F>
inline constexpr bool isNull = std::is_same_v<decltype(F), std::nullptr_t>;

/// A char type is a number here.
template <class N>
std::string decimal(N value) {
    return std::to_string(+value);
}

/// Calls `use` with each item: of a range of pointers, or of an iterator of the model, which is deleted.
template <class Source, class Use>
void forEach(const Source& source, const Use& use) {
    if constexpr (std::is_pointer_v<Source>) {
        const std::unique_ptr<std::remove_pointer_t<Source>> it(source);
        while (it->hasNext()) use(it->next());
    } else {
        for (const auto* item : source) use(item);
    }
}

}  // namespace detail

/// Makers of rows. `Get` and `Set` are member function pointers, or functions that take a record first; without `Set`
/// the key is written only.
template <class T>
struct Keys {
    /// Unchanged text, omitted if empty.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> text(const char* name) {
        return scalar(name, Form::text, getter<Get>(),
                      setter<Set>([](const std::string& text) -> const std::string& { return text; }));
    }
    /// Decimal, always written.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> number(const char* name) {
        Key<T> key = scalar(name, Form::number, formatter<Get>([](auto value) { return detail::decimal(value); }),
                            numberSetter<Set>());
        if constexpr (!detail::isNull<Set>)
            key.numberOf = [](const std::string& text) { return detail::decimal(numberFor<Set>(text)); };
        return key;
    }
    /// Decimal, written when not 0.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> numberUnlessZero(const char* name) {
        return when<Get>(number<Get, Set>(name));
    }
    /// "true" or "false", always written.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> flag(const char* name) {
        return scalar(name, Form::flag, formatter<Get>([](bool value) { return value ? "true" : "false"; }),
                      setter<Set>([](const std::string& text) { return HSTStringUtils::iequals(text, "true"); }));
    }
    /// "true", absent when false.
    template <auto Get, auto Set = nullptr>
    static constexpr Key<T> flagWhenTrue(const char* name) {
        return when<Get>(flag<Get, Set>(name));
    }
    /// An object of further keys of the same record; absent when they write nothing.
    template <const auto& Table>
    static constexpr Key<T> group(const char* name) {
        return {{name, Group{[]() -> Rows { return std::span<const Key<T>>(Table); }}, Form::object,
                 &shapesOfRows<T, Table>}};
    }
    /// Another record as an object. `Get` gives it for writing, `GetWritable` for reading by its own table.
    template <auto Get, auto GetWritable = nullptr>
    static constexpr Key<T> object(const char* name) {
        Object object{[](const void* record) -> const JSONSerializable& { return std::invoke(Get, of(record)); },
                      nullptr, nullptr};
        if constexpr (detail::isNull<GetWritable>) {
            return {{name, object}};
        } else {
            using Record = std::remove_cvref_t<std::invoke_result_t<decltype(GetWritable), T&>>;
            object.writable = [](void* record) -> void* { return &std::invoke(GetWritable, of(record)); };
            object.rows = []() -> Rows { return keysOf<Record>(); };
            return {{name, object, Form::object, &shapesOfRecord<Record>}};
        }
    }
    /// A list of records; absent when empty. `Items` gives a range of pointers, or an iterator that is to be deleted;
    /// `Add` makes the record that an item of the document is read into, by its own table.
    template <auto Items, auto Add = nullptr>
    static constexpr Key<T> objects(const char* name) {
        Objects objects{[](const void* record, const std::function<void(const JSONSerializable*)>& use) {
                            detail::forEach(std::invoke(Items, of(record)), use);
                        },
                        nullptr, nullptr};
        if constexpr (detail::isNull<Add>) {
            return {{name, objects}};
        } else {
            using Record = std::remove_cvref_t<decltype(*std::invoke(Add, std::declval<T&>()))>;
            objects.add = [](void* record) -> void* { return std::invoke(Add, of(record)); };
            objects.size = sizeof(Record);
            objects.rows = []() -> Rows { return keysOf<Record>(); };
            return {{name, objects, Form::list, &shapesOfRecord<Record>}};
        }
    }
    /// A list of texts; empty ones are left out.
    template <auto Get, auto Add = nullptr>
    static constexpr Key<T> texts(const char* name) {
        Texts texts{[](const void* record) -> HSTVector<std::string> { return std::invoke(Get, of(record)); },
                    nullptr};
        if constexpr (!detail::isNull<Add>)
            texts.add = [](void* record, const std::string& text) { std::invoke(Add, of(record), text); };
        return {{name, texts, Form::texts}};
    }
    /// A map as a list of objects with "name" and "value" (or another key in its place).
    template <auto Get, auto Add = nullptr, const auto& ValueKey = kValueKey>
    static constexpr Key<T> pairs(const char* name) {
        Pairs pairs{[](const void* record) -> const std::map<std::string, std::string>& {
                        return std::invoke(Get, of(record));
                    },
                    nullptr, ValueKey};
        if constexpr (!detail::isNull<Add>)
            pairs.add = [](void* record, const std::string& first, const std::string& second) {
                std::invoke(Add, of(record), first, second);
            };
        return {{name, pairs, Form::list, detail::isNull<Add> ? nullptr : &shapesOfPair<ValueKey>}};
    }
    /// A key of any form, read when the document has it. `Write` is a function of a writer, the name and a record,
    /// `Read` one of a record and a node.
    template <auto Write, auto Read = nullptr>
    static constexpr Key<T> custom(const char* name, Form form = Form::unknown, Shapes (*inner)() = nullptr) {
        Custom custom{[](JSONObjectWriter& writer, const char* key, const void* record) {
                          std::invoke(Write, writer, key, of(record));
                      },
                      nullptr};
        if constexpr (!detail::isNull<Read>)
            custom.read = [](void* record, const Node& node) { std::invoke(Read, of(record), node); };
        return ifPresent(Key<T>{{name, custom, form, inner}});
    }

private:
    static T& of(void* record) { return *static_cast<T*>(record); }
    static const T& of(const void* record) { return *static_cast<const T*>(record); }

    static constexpr Key<T> scalar(const char* name, Form form, decltype(Scalar::get) get,
                                   decltype(Scalar::set) set) {
        return {{name, Scalar{get, set}, form}};
    }

    template <auto Get>
    static constexpr decltype(Scalar::get) getter() {
        return [](const void* record, std::string& buffer) -> const std::string& {
            if constexpr (std::is_same_v<std::invoke_result_t<decltype(Get), const T&>, const std::string&>)
                return std::invoke(Get, of(record));
            else
                return buffer = std::invoke(Get, of(record));
        };
    }
    /// `format` has no state.
    template <auto Get, class Format>
    static constexpr decltype(Scalar::get) formatter(Format) {
        return [](const void* record, std::string& buffer) -> const std::string& {
            return buffer = Format()(std::invoke(Get, of(record)));
        };
    }
    template <auto Set, class Parse>
    static constexpr decltype(Scalar::set) setter(Parse) {
        if constexpr (detail::isNull<Set>)
            return nullptr;
        else
            return [](void* record, const std::string& text) { std::invoke(Set, of(record), Parse()(text)); };
    }
    /// The low bits that fit.
    template <auto Set>
    static auto numberFor(const std::string& text) {
        return static_cast<decltype(detail::argumentOf(Set))>(HSTStringUtils::toNumber(text));
    }
    template <auto Set>
    static constexpr decltype(Scalar::set) numberSetter() {
        if constexpr (detail::isNull<Set>)
            return nullptr;
        else
            return setter<Set>([](const std::string& text) { return numberFor<Set>(text); });
    }
};

/// A list of objects, each written by its own `toJSON`; absent when the list is empty. `range` holds pointers.
template <class Range>
void addList(JSONObjectWriter& writer, const char* name, const Range& range) {
    ListIn list(writer, name);
    for (const auto* item : range) list->addItem(static_cast<const JSONSerializable*>(item));
    list.add();
}

}  // namespace json
