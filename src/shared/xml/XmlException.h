#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "msg/HEXFileFault.h"

namespace xml {

/// A location in a document. Line and column count from 1, columns in characters; both are 0 if an error has no
/// location in the text, such as a file that cannot be read or a record that cannot be written.
struct Place {
    std::string file;
    std::uint64_t offset = 0;  ///< in bytes
    std::uint64_t line = 0;
    std::uint64_t column = 0;
};

/// The kinds of errors. The names are stable, unlike the texts.
namespace fault {
inline constexpr char kUnreadable[] = "unreadable";
inline constexpr char kNotWellFormed[] = "not-well-formed";
inline constexpr char kEncoding[] = "encoding";
inline constexpr char kDoctype[] = "doctype";
inline constexpr char kLimit[] = "limit";
inline constexpr char kNamespace[] = "namespace";
inline constexpr char kWrongRoot[] = "wrong-root";
inline constexpr char kUnknownElement[] = "unknown-element";
inline constexpr char kMisplacedElement[] = "misplaced-element";
inline constexpr char kMissingElement[] = "missing-element";
inline constexpr char kMissingAttribute[] = "missing-attribute";
inline constexpr char kUnknownAttribute[] = "unknown-attribute";
inline constexpr char kRepeatedAttribute[] = "repeated-attribute";
inline constexpr char kBadValue[] = "bad-value";
inline constexpr char kOutOfRange[] = "out-of-range";
inline constexpr char kStrayText[] = "stray-text";
}  // namespace fault

/// An error in a document.
struct Violation {
    Place place;
    std::string element;    ///< local name of the faulty element; may be empty
    std::string text;       ///< what was found and what is expected, in one printable line
    const char* name = "";  ///< one of `fault`; empty if not about a document
};
using Violations = std::vector<Violation>;

/// A document that cannot be read, or a record that cannot be written.
class Exception : public HEXFileFault {
public:
    explicit Exception(const Violation& violation);
    ~Exception() override;

    /// The text followed by " (column N)", since callers print only file and line with it.
    const char* what() const noexcept override { return what_.c_str(); }
    const std::string& text() const { return diagnostic().text; }
    std::uint64_t line() const { return diagnostic().line; }
    std::uint64_t column() const { return diagnostic().column; }
    const std::string& element() const { return diagnostic().element; }

private:
    std::string what_;
};

}  // namespace xml
