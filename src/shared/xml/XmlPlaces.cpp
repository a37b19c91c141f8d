#include "xml/XmlPlaces.h"

#include <expat.h>

#include <memory>
#include <new>

namespace xml {

namespace {

/// Walks a record by its rows: in a strict sequence their order is that of the document.
class Walk {
public:
    Walk(std::string_view name, const void* target) : name_(name), target_(target) {}

    bool meets(const char* name, const Element& element, void* record) {
        if (record == target_ && name == name_) return true;
        ++number;
        if (element.alternatives.empty()) return meetsIn(element.children, record);
        for (const Alternative& alternative : element.alternatives)
            if (void* chosen = alternative.chosen(record)) return meetsIn(alternative.children, chosen);
        return false;
    }

    std::size_t number = 0;

private:
    bool meetsIn(std::span<const Child> children, void* record) {
        for (const Child& child : children)
            for (std::size_t i = 0, count = child.count(record); i < count; ++i)
                if (meets(child.name, *child.element, child.at(record, i))) return true;
        return false;
    }

    std::string_view name_;
    const void* target_;
};

struct Search {
    XML_Parser parser;
    std::span<const std::size_t> numbers;
    std::span<Place> places;
    std::size_t found = 0;
    std::size_t number = 0;

    void onStart() noexcept {
        for (; found < numbers.size() && numbers[found] == number; ++found) {
            places[found].offset = static_cast<std::uint64_t>(XML_GetCurrentByteIndex(parser));
            places[found].line = XML_GetCurrentLineNumber(parser);
            places[found].column = XML_GetCurrentColumnNumber(parser) + 1;
        }
        ++number;
        if (found == numbers.size()) XML_StopParser(parser, XML_FALSE);
    }
};

}  // namespace

std::optional<std::size_t> numberOf(const Format& format, const void* record, std::string_view name,
                                    const void* target) {
    Walk walk(name, target);
    // The rows serve the reader too; nothing here writes through them.
    if (!walk.meets(format.root, *format.element, const_cast<void*>(record))) return std::nullopt;
    return walk.number;
}

std::vector<Place> placesOf(std::string_view text, const std::string& file, std::span<const std::size_t> numbers) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                              XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    std::vector<Place> places(numbers.size(), Place{.file = file});
    Search search{parser.get(), numbers, places};
    XML_SetUserData(parser.get(), &search);
    XML_SetStartElementHandler(parser.get(),
                               [](void* self, const char*, const char**) { static_cast<Search*>(self)->onStart(); });
    if (!numbers.empty()) XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), 1);
    return places;
}

}  // namespace xml
