#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "xml/XmlException.h"
#include "xml/XmlRecord.h"

/// Places of elements in documents. Records keep none: they are worked out again for the few elements that someone
/// asks about.
namespace xml {

/// An element by its name and the record that it has filled.
struct Target {
    std::string_view name;
    const void* record;
};

/// The numbers of the elements, in one walk over the record of their document: elements are numbered as they follow
/// each other, the document element is 0. A target that is not there gets 0.
std::vector<std::size_t> numbersOf(const Format& format, const void* record, std::span<const Target> targets);

/// Where the tags of these elements begin, in a document that has been read: a place for each, without a line
/// for a number that the document does not have. `numbers` ascend.
std::vector<Place> placesOf(std::string_view text, const std::string& file, std::span<const std::size_t> numbers);

}  // namespace xml
