#pragma once
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "xml/XmlException.h"
#include "xml/XmlRecord.h"

/// Places of elements in documents. Records keep none: they are worked out again for the few elements that someone
/// asks about.
namespace xml {

/// The number of the element `name` whose record is `target`, as elements follow each other in the document that
/// filled `record`; the document element is 0. Nothing when it is not there.
std::optional<std::size_t> numberOf(const Format& format, const void* record, std::string_view name,
                                    const void* target);

/// Where the tags of these elements begin, in a document that has been read: a place for each, without a line
/// for a number that the document does not have. `numbers` ascend.
std::vector<Place> placesOf(std::string_view text, const std::string& file, std::span<const std::size_t> numbers);

}  // namespace xml
