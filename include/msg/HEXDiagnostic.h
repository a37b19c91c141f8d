#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "text/ZrApi.h"

/// An error in a file, with its location as far as it is known. Exceptions, findings and errors of the C interface all
/// carry this record; locations are never parsed back out of a text.
struct ZR_API HEXDiagnostic {
    std::string file = {};               ///< path as given, or as a descriptor names it
    std::string member = {};             ///< of an archive, unchanged: untrusted text; empty for the file itself
    std::uint64_t line = 0, column = 0;  ///< from 1, columns in characters; 0 if unknown
    std::string id = {};                 ///< short id of the message that reports it, "74-60"; may be empty
    std::string element = {};  ///< name of the element, or path of the JSON value ("devices[0].core"); may be empty
    std::string text = {};     ///< what was found and what was expected
    std::string name = {};     ///< of the finding that a check reports for it, "not-json"; may be empty

    /// "file!member:line:column", without the parts that are unknown; printable. Here and below, a part of more than
    /// 4,000 bytes ends in "...".
    std::string place() const;
    /// "place: element: text", without the parts that are empty; printable, on one line.
    std::string format() const;
    /// The same with the severity, unless empty, and the name or else the id: "place: severity: element: text [name]".
    std::string report(std::string_view severity) const;
};
