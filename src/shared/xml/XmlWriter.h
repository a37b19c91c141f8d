#pragma once
#include <string>

#include "xml/XmlException.h"
#include "xml/XmlRecord.h"

namespace xml {

/// The document of a record: UTF-8, a line for each element, two blanks per level, one blank between attributes,
/// attributes and children in the order of the rows, a final line end. Reading it gives an equal record. Throws
/// `Exception`, without a line, if a required attribute is unset, a required child is missing, or a text contains
/// characters that XML cannot hold; all this is checked before anything is written.
std::string write(const Format& format, const void* record);

template <class R>
std::string write(const Document<R>& format, const R& record) {
    return write(format, static_cast<const void*>(&record));
}

}  // namespace xml
