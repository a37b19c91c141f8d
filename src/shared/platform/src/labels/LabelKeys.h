#pragma once
#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "json/JsonKeys.h"

/// Keys of semantic labels. Unlike other documents, numbers may be hexadecimal and must be numbers.
namespace labels {

/// The leading number of a text, as `strtoull` reads it in base 0. Throws `std::invalid_argument` with the text
/// "stoull" if there is none, and `std::out_of_range`.
inline std::uint64_t numberOf(const std::string& text) { return std::stoull(text, nullptr, 0); }

namespace detail {

template <class T, auto Member>
void setText(T& label, const std::string& text) {
    label.*Member = text;
}
template <class T, auto Member>
std::string getNumber(const T& label) {
    return std::to_string(label.*Member);
}
/// The low bits that fit.
template <class T, auto Member>
void setNumber(T& label, const std::string& text) {
    label.*Member = static_cast<std::remove_reference_t<decltype(label.*Member)>>(numberOf(text));
}
template <class T, auto Member>
std::string getFlag(const T& label) {
    return label.*Member ? "true" : "false";
}
template <class T, auto Member>
void setFlag(T& label, const std::string& text) {
    label.*Member = text == "true";
}

}  // namespace detail

/// Makers of rows for a member of a label. A missing key is an error; `json::ifPresent` makes it optional.
template <class T>
struct Rows {
    template <auto Member>
    static constexpr json::Key<T> text(const char* name) {
        return required(json::Keys<T>::template text<Member, &detail::setText<T, Member>>(name));
    }
    /// Written in decimal.
    template <auto Member>
    static constexpr json::Key<T> number(const char* name) {
        json::Key<T> key =
            json::Keys<T>::template text<&detail::getNumber<T, Member>, &detail::setNumber<T, Member>>(name);
        key.form = json::Form::number;
        return required(key);
    }
    template <auto Member>
    static constexpr json::Key<T> flag(const char* name) {
        json::Key<T> key =
            json::Keys<T>::template text<&detail::getFlag<T, Member>, &detail::setFlag<T, Member>>(name);
        key.form = json::Form::flag;
        return required(key);
    }
};

template <class T>
constexpr json::Key<T> optional(json::Key<T> key) {
    key.required = false;
    return json::ifPresent(key);
}
/// Optional, and read as `text` if it is missing.
template <class T>
constexpr json::Key<T> orElse(json::Key<T> key, const char* text) {
    key.required = false;
    return json::orElse(key, text);
}
/// Optional, and written only for a label of which `Is` is true.
template <auto Is, class T>
constexpr json::Key<T> onlyIf(json::Key<T> key) {
    return json::when<Is>(optional(key));
}
/// Only read.
template <class T>
constexpr json::Key<T> unwritten(json::Key<T> key) {
    key.isWritten = [](const void*) { return false; };
    return key;
}

/// Only written.
template <class T>
constexpr json::Key<T> unread(json::Key<T> key) {
    std::get<json::Scalar>(key.content).set = nullptr;
    return key;
}

/// Fills a label by `read`, and calls `report` if that fails; what precedes the faulty key has then been read.
template <class Read, class Report>
void fill(Read read, Report report) {
    try {
        read();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        report();
    }
}

/// What the class of the labels under `key` expects of this one, for checks; null for an unknown key.
const std::vector<json::Shape>* shapesOf(std::string_view key, json::Node label);

}  // namespace labels
