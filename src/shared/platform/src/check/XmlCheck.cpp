#include "check/XmlCheck.h"

#include "util/HUTFile.h"

namespace check {

CheckFinding findingAt(const Source& source, const xml::Place& place, const char* name, std::string element,
                       std::string text) {
    CheckFinding finding;
    finding.file = source.file;
    finding.member = source.member;
    finding.line = place.line;
    finding.column = place.column;
    finding.name = name;
    finding.element = std::move(element);
    finding.text = std::move(text);
    return finding;
}

namespace {

ReadXml readAs(const Source& source, const records::FormatRow& format,
               std::size_t maxFindings = kMaxFindingsPerDocument) {
    return {&format, format.read(source.text, source.file, maxFindings)};
}

/// The format that the file's name implies, or null.
const records::FormatRow* formatByName(const Source& source) {
    const std::string name = source.file.substr(source.file.rfind('/') + 1);
    if (name == "hw_emu.xml") return records::findFormat("emu");
    if (name == "cfa.xml" || name == "lfa.xml") return records::findFormat("cfa");
    return records::findFormat(HUTFile::getExt(source.file));
}

/// How far a document follows a format that it violates.
std::uint64_t reachOf(const xml::Violation& first) {
    // An error in the right document element has the same offset as a wrong document element.
    return first.name == xml::fault::kWrongRoot ? 0 : first.place.offset + 1;
}

}  // namespace

ReadXml readXml(const Source& source, std::string_view format) {
    return readAs(source, *records::findFormat(format));
}

ReadXml readXml(const Source& source) {
    if (const records::FormatRow* row = formatByName(source)) return readAs(source, *row);
    const records::FormatRow* best = &records::formats().front();
    std::uint64_t furthest = 0;
    for (const records::FormatRow& row : records::formats()) {
        ReadXml document = readAs(source, row, 1);  // stops at the first error
        if (document.isValid()) return document;
        const std::uint64_t reached = reachOf(document.result.violations.front());
        if (reached <= furthest) continue;
        best = &row;
        furthest = reached;
    }
    return readAs(source, *best);
}

bool reportSyntax(const Source& source, const ReadXml& document, Findings& findings) {
    for (const xml::Violation& violation : document.result.violations)
        findings.add(findingAt(source, violation.place, violation.name, violation.element, violation.text));
    return document.isValid();
}

bool checkSyntax(const Source& source, const records::FormatRow& format, Findings& findings) {
    return reportSyntax(source, readAs(source, format), findings);
}

}  // namespace check
