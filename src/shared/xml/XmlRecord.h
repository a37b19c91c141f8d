#pragma once
#include <array>
#include <bit>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "xml/XmlAttr.h"
#include "xml/XmlValue.h"

/// XML formats as tables. A record is a plain struct: an attribute is an `Attr<T>`, a child a value, a
/// `std::optional` or a `std::vector` by its cardinality, an element that holds text a `std::string`. With it
/// are its rows, in document order, children's records first. Reading, writing and the format's schema are ordinary
/// functions over the rows (XmlReader.h, XmlWriter.h, XmlSchema.h); equality is the compiler's; a new record is the
/// empty one; records copy and swap as values.
///
///     struct Clock {
///         Attr<std::string> name;
///         Attr<std::uint16_t> id;
///         bool operator==(const Clock&) const = default;
///     };
///     struct Clocks {
///         std::vector<Clock> clocks;
///         bool operator==(const Clocks&) const = default;
///     };
///     constexpr auto kClockAttributes = attributes<Clock>(
///         required<&Clock::name>("name", "Name of the clock."), optional<&Clock::id>("id", "Its number."));
///     constexpr auto kClock = element(kClockAttributes);
///     constexpr auto kClocksChildren = children<Clocks>(many<&Clocks::clocks>("clock", kClock, "A clock."));
///     constexpr auto kClocks = element(kClocksChildren);
///     constexpr auto kDocument = document("", "", "clocks", kClocks);
namespace xml {

/// The operations of one value type, over an `Attr` of it.
struct ValueType {
    const char* form;    ///< for messages: "an integer"
    const char* schema;  ///< name of the type in a schema: "xs:integer", or "u16" for one with bounds
    long long lowest;    ///< both 0 for a type without bounds
    unsigned long long highest;
    Fault (*assign)(void* attr, std::string_view text);
    bool (*isSet)(const void* attr);
    std::string (*print)(const void* attr);
};

struct Attribute {
    const char* name;  ///< local name
    bool required;
    const ValueType* type;
    void* (*member)(void* record);  ///< its `Attr`
    const char* doc;                ///< meaning, unit and form, for authors of documents
};

enum class Occurs {
    once,
    atMostOnce,
    anyNumber,
    atLeastOnce,
    onceWhenWritten,  ///< optional for the reader, required by the writer
};

struct Element;

inline constexpr std::size_t kUnbounded = std::numeric_limits<std::size_t>::max();

struct Child {
    const char* name;  ///< local name
    Occurs occurs;
    const Element* element;
    void* (*add)(void* record);  ///< makes the next one
    std::size_t (*count)(const void* record);
    void* (*at)(void* record, std::size_t index);
    const char* doc;
    std::size_t most = kUnbounded;  ///< maximum for one that repeats; more are an error
    std::size_t size = 0;           ///< bytes of each one, if they are kept in a list

    bool repeats() const { return occurs == Occurs::anyNumber || occurs == Occurs::atLeastOnce; }
    bool neededToRead() const { return occurs == Occurs::once || occurs == Occurs::atLeastOnce; }
    bool neededToWrite() const { return neededToRead() || occurs == Occurs::onceWhenWritten; }
};

/// One of several exclusive contents; the first child in the document decides which.
struct Alternative {
    std::span<const Child> children;  ///< of the alternative's own record
    void* (*choose)(void* record);    ///< selects this alternative
    void* (*chosen)(void* record);    ///< its record; null if another is selected
};

struct Element {
    std::span<const Attribute> attributes;
    std::span<const Child> children;               ///< a strict sequence
    std::span<const Alternative> alternatives;     ///< if not empty, used instead of `children`
    std::string* (*text)(void* record) = nullptr;  ///< for an element that holds text and no children
};

/// A whole format. All its elements and attributes are in the namespace `uri`, or in no namespace if it is empty.
struct Format {
    const char* uri;
    const char* prefix;  ///< for writing
    const char* root;
    const Element* element;
    const char* doc;  ///< of the document element
};

/// The format whose root element fills an `R`.
template <class R>
struct Document : Format {};

// The following makes rows. The templates tie each row to its struct, so that a row in the table of another struct
// does not compile.

template <class R>
struct AttributeOf : Attribute {};
template <class R>
struct ChildOf : Child {};
template <class R>
struct ElementOf : Element {};
template <class R, std::size_t N>
struct AttributeRows : std::array<Attribute, N> {};
template <class R, std::size_t N>
struct ChildRows : std::array<Child, N> {};

namespace detail {

template <class T>
struct Member;
template <class R, class V>
struct Member<V R::*> {
    using Record = R;
    using Value = V;
};
template <auto M>
using RecordOf = typename Member<decltype(M)>::Record;
template <auto M>
using ValueOf = typename Member<decltype(M)>::Value;

template <auto M>
ValueOf<M>& member(void* record) {
    return static_cast<RecordOf<M>*>(record)->*M;
}
template <auto M>
const ValueOf<M>& member(const void* record) {
    return static_cast<const RecordOf<M>*>(record)->*M;
}

template <class T>
constexpr const char* formOf() {
    if constexpr (std::is_same_v<T, bool>)
        return "a Boolean (true, false, 1 or 0)";
    else if constexpr (std::is_same_v<T, Decimal>)
        return "a decimal number";
    else if constexpr (std::is_same_v<T, std::string>)
        return "a text";
    else
        return "an integer";
}

template <class T>
constexpr const char* schemaOf() {
    constexpr const char* kUnsigned[] = {"u8", "u16", "u32", "u64"};
    constexpr const char* kSigned[] = {"s8", "s16", "s32", "s64"};
    if constexpr (std::is_same_v<T, bool>)
        return "xs:boolean";
    else if constexpr (std::is_same_v<T, Decimal>)
        return "xs:decimal";
    else if constexpr (std::is_same_v<T, std::string>)
        return "xs:string";
    else if constexpr (std::is_same_v<T, Integer>)
        return "xs:integer";
    else
        return (std::is_signed_v<T> ? kSigned : kUnsigned)[std::bit_width(sizeof(T)) - 1];
}

template <class T>
struct Bounds {
    static constexpr int lowest = 0, highest = 0;
};
template <std::integral T>
struct Bounds<T> {
    static constexpr T lowest = std::numeric_limits<T>::min(), highest = std::numeric_limits<T>::max();
};

template <class T>
inline constexpr ValueType kValueType{
    formOf<T>(),
    schemaOf<T>(),
    static_cast<long long>(Bounds<T>::lowest),
    static_cast<unsigned long long>(Bounds<T>::highest),
    [](void* attr, std::string_view text) {
        T value{};
        const Fault fault = parse(text, value);
        if (fault == Fault::none) static_cast<Attr<T>*>(attr)->set(std::move(value));
        return fault;
    },
    [](const void* attr) { return static_cast<const Attr<T>*>(attr)->isSet(); },
    [](const void* attr) { return std::string(print(static_cast<const Attr<T>*>(attr)->get())); },
};

template <class T>
struct Unattr;
template <class T>
struct Unattr<Attr<T>> {
    using Type = T;
};

template <auto M>
constexpr AttributeOf<RecordOf<M>> attribute(const char* name, bool required, const char* doc) {
    using T = typename Unattr<ValueOf<M>>::Type;
    return {{name, required, &kValueType<T>, [](void* record) -> void* { return &member<M>(record); }, doc}};
}

template <class V>
struct Held {  // a value
    using Record = V;
    static constexpr std::size_t kSize = 0;
    static void* add(V& held) { return &held; }
    static std::size_t count(const V&) { return 1; }
    static void* at(V& held, std::size_t) { return &held; }
};
template <class V>
struct Held<std::optional<V>> {
    using Record = V;
    static constexpr std::size_t kSize = 0;
    static void* add(std::optional<V>& held) { return &held.emplace(); }
    static std::size_t count(const std::optional<V>& held) { return held ? 1 : 0; }
    static void* at(std::optional<V>& held, std::size_t) { return held ? &*held : nullptr; }
};
template <class V>
struct Held<std::vector<V>> {
    using Record = V;
    static constexpr std::size_t kSize = sizeof(V);
    static void* add(std::vector<V>& held) { return &held.emplace_back(); }
    static std::size_t count(const std::vector<V>& held) { return held.size(); }
    static void* at(std::vector<V>& held, std::size_t index) { return &held[index]; }
};

template <auto M>
using ChildRecord = typename Held<ValueOf<M>>::Record;

template <auto M>
constexpr ChildOf<RecordOf<M>> child(const char* name, Occurs occurs, const Element& element, const char* doc,
                                     std::size_t most = kUnbounded) {
    using H = Held<ValueOf<M>>;
    return {{name, occurs, &element, [](void* record) { return H::add(member<M>(record)); },
             [](const void* record) { return H::count(member<M>(record)); },
             [](void* record, std::size_t index) { return H::at(member<M>(record), index); }, doc, most, H::kSize}};
}

}  // namespace detail

template <auto M>
constexpr auto required(const char* name, const char* doc = "") {
    return detail::attribute<M>(name, true, doc);
}
template <auto M>
constexpr auto optional(const char* name, const char* doc = "") {
    return detail::attribute<M>(name, false, doc);
}

template <class R, std::same_as<AttributeOf<R>>... Rows>
constexpr AttributeRows<R, sizeof...(Rows)> attributes(const Rows&... rows) {
    return {{rows...}};
}
template <class R, std::same_as<ChildOf<R>>... Rows>
constexpr ChildRows<R, sizeof...(Rows)> children(const Rows&... rows) {
    return {{rows...}};
}

/// The content of each element that holds text; its record is a `std::string`.
inline constexpr ElementOf<std::string> kText{
    {{}, {}, {}, [](void* record) { return static_cast<std::string*>(record); }}};

/// The member is a value.
template <auto M>
constexpr auto one(const char* name, const ElementOf<detail::ValueOf<M>>& element, const char* doc = "") {
    return detail::child<M>(name, Occurs::once, element, doc);
}
/// The member is a `std::optional`.
template <auto M>
constexpr auto atMostOne(const char* name, const ElementOf<typename detail::ValueOf<M>::value_type>& element,
                         const char* doc = "") {
    return detail::child<M>(name, Occurs::atMostOnce, element, doc);
}
/// The member is a `std::optional`, required by the writer but not by the reader.
template <auto M>
constexpr auto oneWhenWritten(const char* name, const ElementOf<typename detail::ValueOf<M>::value_type>& element,
                              const char* doc = "") {
    return detail::child<M>(name, Occurs::onceWhenWritten, element, doc);
}
/// The member is a `std::vector`.
template <auto M>
constexpr auto many(const char* name, const ElementOf<typename detail::ValueOf<M>::value_type>& element,
                    const char* doc = "") {
    return detail::child<M>(name, Occurs::anyNumber, element, doc);
}
/// The member is a `std::vector` that must not be empty, and of which at most `most` are read.
template <auto M>
constexpr auto atLeastOne(const char* name, const ElementOf<typename detail::ValueOf<M>::value_type>& element,
                          const char* doc = "", std::size_t most = kUnbounded) {
    return detail::child<M>(name, Occurs::atLeastOnce, element, doc, most);
}

/// Alternative `I` of the `std::variant` member `M`.
template <auto M, std::size_t I, std::size_t N>
constexpr Alternative alternative(const ChildRows<std::variant_alternative_t<I, detail::ValueOf<M>>, N>& children) {
    return {children, [](void* record) -> void* { return &detail::member<M>(record).template emplace<I>(); },
            [](void* record) -> void* { return std::get_if<I>(&detail::member<M>(record)); }};
}

// The rows must be constants with static storage: an element keeps only references to them.
template <class R, std::size_t N>
constexpr ElementOf<R> element(const AttributeRows<R, N>& attributes) {
    return {{attributes, {}, {}}};
}
template <class R, std::size_t N>
constexpr ElementOf<R> element(const ChildRows<R, N>& children) {
    return {{{}, children, {}}};
}
template <class R, std::size_t N, std::size_t M>
constexpr ElementOf<R> element(const AttributeRows<R, N>& attributes, const ChildRows<R, M>& children) {
    return {{attributes, children, {}}};
}
/// An element whose content is one of the alternatives.
template <class R, std::size_t N, std::size_t M>
constexpr ElementOf<R> choice(const AttributeRows<R, N>& attributes, const Alternative (&alternatives)[M]) {
    return {{attributes, {}, alternatives}};
}

template <class R>
constexpr Document<R> document(const char* uri, const char* prefix, const char* root, const ElementOf<R>& element,
                               const char* doc = "") {
    return {{uri, prefix, root, &element, doc}};
}

}  // namespace xml
