#pragma once
#include <string>

#include "xml/XmlRecord.h"

namespace xml {

/// The W3C XML Schema 1.0 of a format, printed from the rows that the reader uses, with their texts as documentation.
/// A document is valid when the reader takes it, but for what a schema cannot say: document type declarations and
/// encodings, the reader's limits, and attributes of the XML Schema instance namespace, which it skips and a
/// validator obeys. Each kind of element is a named type; two kinds of one element name are told apart by the names
/// of those around them ("Board.Config"). Alternatives must not begin with the same element.
std::string schemaOf(const Format& format);

}  // namespace xml
