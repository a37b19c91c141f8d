#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "xml/XmlException.h"
#include "xml/XmlRecord.h"

/// Locations of elements in documents. Records do not store them: they are computed again for the few elements with
/// findings.
namespace xml {

/// An element, identified by its name and the record that it filled.
struct Target {
    std::string_view name;
    const void* record;
};

/// The numbers of the elements, from one walk over the record of their document: elements are numbered in document
/// order, the document element is 0. A missing target gets 0.
std::vector<std::size_t> numbersOf(const Format& format, const void* record, std::span<const Target> targets);

/// Where the tags of these elements begin, in a document that has been read: a location for each, without a line for
/// a number that the document does not have. `numbers` must be in ascending order.
std::vector<Place> placesOf(std::string_view text, const std::string& file, std::span<const std::size_t> numbers);

}  // namespace xml
