#pragma once
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// Places in JSON texts. Trees keep none: they are worked out again for the few values that someone asks about.
namespace json {

struct TextPlace {
    std::uint64_t line = 1, column = 1;  ///< columns in characters
};

TextPlace placeAt(std::string_view text, std::size_t offset);

/// Where values begin, in one walk over a text that has been parsed. Values are numbered as they stand in the text,
/// the document itself is 0; `numbers` ascend.
std::vector<TextPlace> placesOf(std::string_view text, std::span<const std::size_t> numbers);

}  // namespace json
