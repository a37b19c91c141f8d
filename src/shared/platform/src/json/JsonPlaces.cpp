#include "json/JsonPlaces.h"

namespace json {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// Continues from a known location, so that a walk over a text is linear.
class Place {
public:
    explicit Place(std::string_view text) : text_(text) {}

    const TextPlace& at(std::size_t offset) {
        for (; offset_ < offset && offset_ < text_.size(); ++offset_) {
            if (text_[offset_] == '\n')
                place_ = {place_.line + 1, 1};
            else if ((static_cast<unsigned char>(text_[offset_]) & 0xC0) != 0x80)
                ++place_.column;
        }
        return place_;
    }

private:
    std::string_view text_;
    std::size_t offset_ = 0;
    TextPlace place_;
};

/// The end of the string that begins with the quote at `offset`.
std::size_t endOfString(std::string_view text, std::size_t offset) {
    for (++offset; offset < text.size() && text[offset] != '"'; ++offset)
        if (text[offset] == '\\') ++offset;
    return offset + 1;
}

/// The end of the value or key that begins at `offset`; for an object or a list, the end of its opening bracket.
std::size_t endOfToken(std::string_view text, std::size_t offset) {
    if (text[offset] == '"') return endOfString(text, offset);
    if (text[offset] == '{' || text[offset] == '[') return offset + 1;
    const auto end = text.find_first_of(",]} \t\r\n", offset);
    return end == std::string_view::npos ? text.size() : end;
}

bool isKey(std::string_view text, std::size_t begin, std::size_t end) {
    const auto next = text[begin] == '"' ? text.find_first_not_of(kBlanks, end) : std::string_view::npos;
    return next != std::string_view::npos && text[next] == ':';
}

}  // namespace

TextPlace placeAt(std::string_view text, std::size_t offset) { return Place(text).at(offset); }

std::vector<TextPlace> placesOf(std::string_view text, std::span<const std::size_t> numbers) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    std::vector<TextPlace> places;
    Place place(text);
    std::size_t number = 0;
    std::size_t offset = text.starts_with(kMark) ? kMark.size() : 0;
    while (places.size() < numbers.size()) {
        offset = text.find_first_not_of(" \t\r\n,:]}", offset);
        if (offset == std::string_view::npos) break;
        const std::size_t end = endOfToken(text, offset);
        if (!isKey(text, offset, end)) {
            for (; places.size() < numbers.size() && numbers[places.size()] == number;)
                places.push_back(place.at(offset));
            ++number;
        }
        offset = end;
    }
    return places;
}

}  // namespace json
