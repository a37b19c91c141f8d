#pragma once
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// Locations in JSON texts. Trees do not store them: they are computed again for the few values with findings.
namespace json {

struct TextPlace {
    std::uint64_t line = 1, column = 1;  ///< columns in characters
};

TextPlace placeAt(std::string_view text, std::size_t offset);

/// Where values begin, from one walk over a text that has been parsed. Values are numbered in the order of the text,
/// the document itself is 0; `numbers` must be in ascending order.
std::vector<TextPlace> placesOf(std::string_view text, std::span<const std::size_t> numbers);

}  // namespace json
