#pragma once
#include <string>

#include "xml/XmlException.h"
#include "xml/XmlRecord.h"

namespace xml {

/// The document of a record: UTF-8, a line for each element, two blanks for each level, one blank between attributes,
/// attributes and children in the order of the rows, a final line end. Reading it gives an equal record. Throws
/// `Exception`, without a line, when a required attribute is unset, a needed child is missing, or a text holds what
/// XML cannot; all that is found out before anything is written.
std::string write(const Format& format, const void* record);

template <class R>
std::string write(const Document<R>& format, const R& record) {
    return write(format, static_cast<const void*>(&record));
}

}  // namespace xml
