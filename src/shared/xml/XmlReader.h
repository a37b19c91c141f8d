#pragma once
#include <string>
#include <string_view>

#include "xml/XmlException.h"
#include "xml/XmlRecord.h"

/// Reading: one function over the tables. Elements and attributes are matched by namespace and local name, whatever
/// prefix the document uses. Attributes of the XML Schema instance namespace and of `xml:` are skipped. Errors are:
/// any other unknown attribute, encodings other than UTF-8 and UTF-16 with a byte-order mark, unknown, missing and
/// misplaced elements, values of the wrong type, and text where the format has none. A document type declaration is
/// an error too, so there are no entities except the five predefined ones, and no other file is ever opened.
namespace xml {

inline constexpr std::size_t kMaxDocument = 32u << 20;  ///< bytes
inline constexpr std::size_t kMaxToken = 16u << 20;   ///< bytes of one tag or comment, or of the text of one element
inline constexpr std::size_t kMaxNodes = 1'000'000;   ///< elements and attributes
inline constexpr std::size_t kMaxAttributes = 1'000;  ///< of one element, namespace declarations included
inline constexpr std::size_t kMaxDepth = 64;          ///< nested elements

/// Fills `record`, which must be new. Without `violations` the first error is thrown as an `Exception`. Otherwise
/// nothing is thrown: up to `most` errors are added, reading continues after each misplaced element, and `record`
/// must not be used if an error was added.
void read(const Format& format, std::string_view text, const std::string& file, void* record,
          Violations* violations = nullptr, std::size_t most = 0);

/// The record of the document `text`, whose name for messages is `file`. Throws `Exception`.
template <class R>
R read(const Document<R>& format, std::string_view text, const std::string& file) {
    R record;
    read(format, text, file, &record);
    return record;
}

/// All errors of the document, at most `most`, in document order.
template <class R>
Violations check(const Document<R>& format, std::string_view text, const std::string& file, std::size_t most = 1000) {
    R record;
    Violations violations;
    read(format, text, file, &record, &violations, most);
    return violations;
}

/// The bytes of a file. Throws `Exception`, without a line, if it cannot be read, is not a regular file or is larger
/// than `kMaxDocument`.
std::string textOf(const std::string& file);

template <class R>
R readFile(const Document<R>& format, const std::string& file) {
    return read(format, textOf(file), file);
}

}  // namespace xml
