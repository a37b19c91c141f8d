#pragma once
#include "check/Findings.h"
#include "records/Formats.h"
#include "xml/XmlException.h"

namespace check {

/// A document that has been read, and the format it was checked against.
struct ReadXml {
    const records::FormatRow* format;
    records::Checked result;

    bool isValid() const { return result.violations.empty(); }
};

ReadXml readXml(const Source& source, std::string_view format);
/// Reads the format that the file's name implies, otherwise the format that the document follows furthest.
ReadXml readXml(const Source& source);

/// Adds the violations of the document; true if it is valid.
bool reportSyntax(const Source& source, const ReadXml& document, Findings& findings);
/// Checks a document against its format; true if it is valid.
bool checkSyntax(const Source& source, const records::FormatRow& format, Findings& findings);

/// A finding at a location in the source.
CheckFinding findingAt(const Source& source, const xml::Place& place, const char* name, std::string element,
                       std::string text);

}  // namespace check
