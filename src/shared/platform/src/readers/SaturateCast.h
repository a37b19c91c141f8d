#pragma once
#include <limits>
#include <utility>

/// `value`, or the nearest value that `T` can represent.
template <class T, class V>
constexpr T saturate_cast(V value) {
    using Limits = std::numeric_limits<T>;
    if (std::cmp_less(value, Limits::min())) return Limits::min();
    if (std::cmp_greater(value, Limits::max())) return Limits::max();
    return static_cast<T>(value);
}
