#pragma once
#include <string>

#include "xml/XmlRecord.h"

namespace xml {

/// The W3C XML Schema 1.0 of a format, printed from the rows that the reader uses, with their texts as documentation.
/// A document is valid if the reader accepts it, except for what a schema cannot express: document type declarations
/// and encodings, the reader's limits, and attributes of the XML Schema instance namespace, which the reader skips
/// and a validator obeys. Each kind of element is a named type; kinds with the same element name are distinguished by
/// their parents' names ("Board.Config"). Alternatives must not begin with the same element.
std::string schemaOf(const Format& format);

}  // namespace xml
