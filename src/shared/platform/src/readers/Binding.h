#pragma once
#include <array>
#include <concepts>
#include <functional>
#include <span>
#include <string>
#include <type_traits>

#include "msg/Budget.h"
#include "readers/SaturateCast.h"
#include "text/HSTStringUtils.h"
#include "xml/XmlRecord.h"

/// Maps a record of a format to an object of the model by a table: one row per value, with the record's member and the
/// object's getter and setter. Readers and writers use the same table.
///
///     using P = Fields<TEQPlatform::Platform, HTEQPlatform>;
///     constexpr auto kPlatform = P::rows(P::both<&P::R::name, &P::M::getName, &P::M::setName>(),
///                                        P::both<&P::R::library, &P::M::getLibrary, &P::M::setLibrary>());
///     std::span<const Row> rowsOf(P) { return kPlatform; }
///
/// Bindings.h lists the tables.
namespace binding {

/// The functions take a record and an object of the types that the row was created for.
struct Row {
    /// Null for a value that is only written. With `onlySet`, a value that the document lacks leaves the object
    /// unchanged.
    void (*read)(const void* record, void* object, bool onlySet) = nullptr;
    /// Null for a value that is only read. With `unlessEmpty`, an empty text, 0 and false leave the record unchanged.
    void (*write)(const void* object, void* record, bool unlessEmpty) = nullptr;
    bool onlySet = false;
    bool unlessEmpty = false;
};

void readRows(std::span<const Row> rows, const void* record, void* object);
void writeRows(std::span<const Row> rows, const void* object, void* record);

namespace detail {

/// How a value is converted to another type.
enum class As {
    same,       ///< lossless; a row that could lose information does not compile
    saturated,  ///< the nearest value of the other type, in both directions
    cut,        ///< the low bits, in both directions
    flag,       ///< a text, true if it is "true" in any letter case
};

template <class T>
const T& valueOf(const xml::Attr<T>& attr) {
    return attr.get();
}
inline const std::string& valueOf(const xml::Attr<xml::Decimal>& attr) { return attr.get().text; }
inline long long valueOf(const xml::Attr<xml::Integer>& attr) { return attr.get().value(); }
inline const std::string& valueOf(const std::string& text) { return text; }

template <class T>
bool isSet(const xml::Attr<T>& attr) {
    return attr.isSet();
}
inline bool isSet(const std::string&) { return true; }

template <class T>
void assign(xml::Attr<T>& attr, T value) {
    attr.set(std::move(value));
}
inline void assign(xml::Attr<xml::Decimal>& attr, std::string text) { attr.set({std::move(text)}); }
inline void assign(xml::Attr<xml::Integer>& attr, long long value) { attr.set({std::to_string(value)}); }
inline void assign(std::string& text, std::string value) { text = std::move(value); }

template <class V>
bool isEmpty(const V& value) {
    if constexpr (std::is_arithmetic_v<V>)
        return value == V{};
    else
        return value.empty();
}

template <As as, class To, class From>
decltype(auto) converted(From&& value) {
    if constexpr (as == As::saturated)
        return saturate_cast<To>(value);
    else if constexpr (as == As::cut)
        return static_cast<To>(value);
    else if constexpr (as == As::flag && std::is_same_v<To, bool>)
        return HSTStringUtils::iequals(value, "true");
    else if constexpr (as == As::flag)
        return To(value ? "true" : "false");
    else if constexpr (std::is_arithmetic_v<To>)
        return To{value};  // braces reject narrowing
    else
        return std::forward<From>(value);
}

template <class R, class C, class A>
std::remove_cvref_t<A> argumentOf(R (C::*)(A));
template <class M, class A>
std::remove_cvref_t<A> argumentOf(void (*)(M&, A));

}  // namespace detail

/// The pair of a record type and a class, with functions that create rows. `Member` is an `Attr` or a text of the
/// record; `Get` and `Set` are members of the class, or functions whose first argument is the object.
template <class Record, class Class>
struct Fields {
    using R = Record;
    using M = Class;
    struct Row : binding::Row {};

    template <std::same_as<Row>... Rows>
    static constexpr std::array<binding::Row, sizeof...(Rows)> rows(const Rows&... rows) {
        return {rows...};
    }

    template <auto Member, auto Get, auto Set>
    static constexpr Row both() {
        return row<As::same, Member, Get, Set>();
    }
    template <auto Member, auto Get, auto Set>
    static constexpr Row saturated() {
        return row<As::saturated, Member, Get, Set>();
    }
    template <auto Member, auto Get, auto Set>
    static constexpr Row cut() {
        return row<As::cut, Member, Get, Set>();
    }
    template <auto Member, auto Get, auto Set>
    static constexpr Row flag() {
        return row<As::flag, Member, Get, Set>();
    }
    template <auto Member, auto Set>
    static constexpr Row readOnly() {
        return {{reader<As::same, Member, Set>(), nullptr}};
    }
    template <auto Member, auto Get>
    static constexpr Row writeOnly() {
        return {{nullptr, writer<As::same, Member, Get>()}};
    }

    // The same row with a condition.

    /// A value that the document lacks leaves the object unchanged.
    static constexpr Row onlySet(Row row) {
        row.onlySet = true;
        return row;
    }
    /// An empty text, 0 and false are not written.
    static constexpr Row unlessEmpty(Row row) {
        row.unlessEmpty = true;
        return row;
    }
    static constexpr Row optional(Row row) { return onlySet(unlessEmpty(row)); }

private:
    using As = detail::As;

    template <As as, auto Member, auto Get, auto Set>
    static constexpr Row row() {
        return {{reader<as, Member, Set>(), writer<as, Member, Get>()}};
    }
    template <As as, auto Member, auto Set>
    static constexpr auto reader() {
        return [](const void* record, void* object, bool onlySet) {
            using To = decltype(detail::argumentOf(Set));
            const auto& member = static_cast<const R*>(record)->*Member;
            if (onlySet && !detail::isSet(member)) return;
            std::invoke(Set, *static_cast<M*>(object), detail::converted<as, To>(detail::valueOf(member)));
        };
    }
    template <As as, auto Member, auto Get>
    static constexpr auto writer() {
        return [](const void* object, void* record, bool unlessEmpty) {
            auto& member = static_cast<R*>(record)->*Member;
            using To = std::remove_cvref_t<decltype(detail::valueOf(member))>;
            decltype(auto) value = std::invoke(Get, *static_cast<const M*>(object));
            if (unlessEmpty && detail::isEmpty(value)) return;
            detail::assign(member, To(detail::converted<as, To>(value)));
        };
    }
};

template <class R, class M>
void read(const R& record, M& object) {
    Budget::spend(Cost::records, sizeof(M));  // the record has been counted when it was read
    readRows(rowsOf(Fields<R, M>()), &record, &object);
}

template <class M, class R>
void write(const M& object, R& record) {
    writeRows(rowsOf(Fields<R, M>()), &object, &record);
}

}  // namespace binding
