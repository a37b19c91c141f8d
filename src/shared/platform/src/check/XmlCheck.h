#pragma once
#include "check/Findings.h"
#include "records/Formats.h"
#include "xml/XmlException.h"

namespace check {

/// Holds a document against its format; true when it is valid.
bool checkSyntax(const Source& source, const records::FormatRow& format, Findings& findings);

/// The format of a document: by its file's name, or else the one that it follows furthest.
const records::FormatRow& formatOf(const Source& source);

/// A finding at a place in the source.
CheckFinding findingAt(const Source& source, const xml::Place& place, const char* name, std::string element,
                       std::string text);

}  // namespace check
