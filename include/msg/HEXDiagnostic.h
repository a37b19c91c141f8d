#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "text/ZrApi.h"

/// One fault of a file, with its place as far as that is known. Exceptions, findings and errors of the C interface all
/// carry this record; no other text is composed or taken apart to report a place.
struct ZR_API HEXDiagnostic {
    std::string file = {};    ///< path as it was given, or as a descriptor names it
    std::string member = {};  ///< of an archive, as it stands there: untrusted text; empty for the file itself
    std::uint64_t line = 0, column = 0;  ///< from 1, columns in characters; 0 when there is no place in the text
    std::string id = {};                 ///< short id of the message that reports it, "74-60"; may be empty
    std::string element = {};  ///< name of the element, or path of the JSON value ("devices[0].core"); may be empty
    std::string text = {};     ///< what was found and what was expected

    /// "file!member:line:column" of what is known, printable.
    std::string place() const;
    /// "place: text", or the text alone when no place is known; printable, in one line.
    std::string format() const;
    /// The same with a severity, unless it is empty, and the id: "place: severity: text [id]".
    std::string report(std::string_view severity) const;
};
