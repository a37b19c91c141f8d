#include "xml/XmlPlaces.h"

#include <expat.h>

#include <memory>
#include <new>
#include <unordered_map>
#include <utility>

namespace xml {

namespace {

/// Walks a record by its rows: in a strict sequence their order is that of the document.
class Walk {
public:
    explicit Walk(std::span<const Target> targets) : numbers(targets.size(), 0), targets_(targets) {
        for (std::size_t i = 0; i < targets.size(); ++i) wanted_.emplace(targets[i].record, i);
    }

    std::vector<std::size_t> numbers;

    void element(const char* name, const Element& element, void* record) {
        // A record may have the same address as its first child.
        for (auto [at, end] = wanted_.equal_range(record); at != end; ++at)
            if (targets_[at->second].name == name) numbers[at->second] = next_;
        ++next_;
        children_(element.children, record);
        for (const Alternative& alternative : element.alternatives)
            if (void* chosen = alternative.chosen(record)) children_(alternative.children, chosen);
    }

private:
    void children_(std::span<const Child> children, void* record) {
        for (const Child& child : children)
            for (std::size_t i = 0, count = child.count(record); i < count; ++i)
                element(child.name, *child.element, child.at(record, i));
    }

    std::span<const Target> targets_;
    std::unordered_multimap<const void*, std::size_t> wanted_;
    std::size_t next_ = 0;
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

std::vector<std::size_t> numbersOf(const Format& format, const void* record, std::span<const Target> targets) {
    Walk walk(targets);
    // The rows also serve the reader; nothing here writes through them.
    walk.element(format.root, *format.element, const_cast<void*>(record));
    return std::move(walk.numbers);
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
