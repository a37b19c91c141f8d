#pragma once
#include <string>
#include <utility>

#include "text/HSTStringUtils.h"

/// What the members of an XML format's records are made of.
namespace xml {

/// An integer without bounds, kept as its digits so that writing gives back what was read.
struct Integer {
    std::string text = "0";
    /// The nearest value that the type can hold.
    long long value() const { return HSTStringUtils::toNumber(text); }
    bool operator==(const Integer&) const = default;
};

/// A decimal number, stored as in the file without the blanks around it.
struct Decimal {
    std::string text;
    bool operator==(const Decimal&) const = default;
};

/// The value of an attribute, and whether the document gives one.
template <class T>
class Attr {
public:
    Attr() = default;
    /// A value to read while none is set.
    explicit Attr(T initial) : value_(std::move(initial)) {}

    bool isSet() const { return set_; }
    const T& get() const { return value_; }
    void set(T value) {
        value_ = std::move(value);
        set_ = true;
    }
    bool operator==(const Attr&) const = default;

private:
    T value_{};
    bool set_ = false;
};

}  // namespace xml
