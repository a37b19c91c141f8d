#pragma once
#include "check/Findings.h"
#include "records/Formats.h"
#include "xml/XmlException.h"

namespace check {

/// A document that has been read, and the format that it was held against.
struct ReadXml {
    const records::FormatRow* format;
    records::Checked result;

    bool isValid() const { return result.violations.empty(); }
};

ReadXml readXml(const Source& source, std::string_view format);
/// By the format that the file's name tells, or else the one that the document follows furthest.
ReadXml readXml(const Source& source);

/// Adds the faults of the document; true when it is valid.
bool reportSyntax(const Source& source, const ReadXml& document, Findings& findings);
/// Holds a document against its format; true when it is valid.
bool checkSyntax(const Source& source, const records::FormatRow& format, Findings& findings);

/// A finding at a place in the source.
CheckFinding findingAt(const Source& source, const xml::Place& place, const char* name, std::string element,
                       std::string text);

}  // namespace check
