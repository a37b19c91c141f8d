#include "text/HSTStringUtils.h"

#include <algorithm>
#include <limits>

namespace {

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

constexpr std::string_view kBlanks = " \t\n\v\f\r";

}  // namespace

bool HSTStringUtils::iequals(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string HSTStringUtils::toLower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

std::string HSTStringUtils::toUpper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

std::string_view HSTStringUtils::trim(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> HSTStringUtils::split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    for (;;) {
        const auto end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::string HSTStringUtils::join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result += separator;
        result += pieces[i];
    }
    return result;
}

long long HSTStringUtils::toNumber(std::string_view text) {
    using Limits = std::numeric_limits<long long>;
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return 0;
    text.remove_prefix(first);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    long long value = 0;  // kept negative: the range reaches one further down
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        const int digit = c - '0';
        if (value < (Limits::min() + digit) / 10) return negative ? Limits::min() : Limits::max();
        value = value * 10 - digit;
    }
    if (negative) return value;
    return value == Limits::min() ? Limits::max() : -value;
}
