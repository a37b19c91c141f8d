#include "xml/XmlValue.h"

#include <algorithm>
#include <charconv>

namespace xml {

namespace {

/// Without leading and trailing XML white space.
std::string_view collapsed(std::string_view text) {
    constexpr std::string_view kSpace = " \t\n\r";
    const auto first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

bool isSign(char c) { return c == '+' || c == '-'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool allDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), isDigit); }

std::string_view withoutSign(std::string_view text) {
    if (!text.empty() && isSign(text.front())) text.remove_prefix(1);
    return text;
}

bool isInteger(std::string_view text) {
    const std::string_view digits = withoutSign(text);
    return !digits.empty() && allDigits(digits);
}

bool isDecimal(std::string_view text) {
    const std::string_view number = withoutSign(text);
    const auto point = number.find('.');
    const std::string_view whole = number.substr(0, point);
    const std::string_view rest = point == std::string_view::npos ? std::string_view() : number.substr(point + 1);
    return whole.size() + rest.size() > 0 && allDigits(whole) && allDigits(rest);
}

}  // namespace

Fault parseMagnitude(std::string_view text, std::uint64_t lowest, std::uint64_t highest, Magnitude& value) {
    text = collapsed(text);
    if (!isInteger(text)) return Fault::form;
    const bool negative = text.front() == '-';
    const std::string_view digits = withoutSign(text);
    std::uint64_t number = 0;
    const bool tooLong = std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc();
    if (negative && (tooLong || number > lowest)) return Fault::belowMinimum;
    if (!negative && (tooLong || number > highest)) return Fault::aboveMaximum;
    value = {negative, number};
    return Fault::none;
}

Fault parse(std::string_view text, std::string& value) {
    value = text;
    return Fault::none;
}

Fault parse(std::string_view text, bool& value) {
    text = collapsed(text);
    if (text != "true" && text != "1" && text != "false" && text != "0") return Fault::form;
    value = text == "true" || text == "1";
    return Fault::none;
}

Fault parse(std::string_view text, Integer& value) {
    text = collapsed(text);
    if (!isInteger(text)) return Fault::form;
    value.text = text;
    return Fault::none;
}

Fault parse(std::string_view text, Decimal& value) {
    text = collapsed(text);
    if (!isDecimal(text)) return Fault::form;
    value.text = text;
    return Fault::none;
}

}  // namespace xml
