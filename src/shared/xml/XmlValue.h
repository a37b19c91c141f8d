#pragma once
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "xml/XmlAttr.h"

namespace xml {

/// What is wrong with a value, in the order of the tests.
enum class Fault { none, form, belowMinimum, aboveMaximum };

/// An integer of any type: its sign and its distance from 0.
struct Magnitude {
    bool negative = false;
    std::uint64_t value = 0;
};

/// A number between -`lowest` and `highest`, optionally with a sign; surrounding blanks are ignored.
Fault parseMagnitude(std::string_view text, std::uint64_t lowest, std::uint64_t highest, Magnitude& value);

/// On failure, these leave `value` unchanged.
Fault parse(std::string_view text, std::string& value);
Fault parse(std::string_view text, bool& value);
Fault parse(std::string_view text, Integer& value);
Fault parse(std::string_view text, Decimal& value);

template <std::integral T>
Fault parse(std::string_view text, T& value) {
    using Limits = std::numeric_limits<T>;
    Magnitude number;
    constexpr std::uint64_t lowest = Limits::min() == 0 ? 0 : std::uint64_t(Limits::max()) + 1;
    const Fault fault = parseMagnitude(text, lowest, std::uint64_t(Limits::max()), number);
    if (fault == Fault::none) value = static_cast<T>(number.negative ? 0 - number.value : number.value);
    return fault;
}

inline const std::string& print(const std::string& value) { return value; }
inline const std::string& print(const Integer& value) { return value.text; }
inline const std::string& print(const Decimal& value) { return value.text; }
inline std::string print(bool value) { return value ? "true" : "false"; }
template <std::integral T>
std::string print(T value) {
    return std::to_string(+value);  // + : a char type is a number here
}

}  // namespace xml
