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

bool checkSyntax(const Source& source, const records::FormatRow& format, Findings& findings) {
    const xml::Violations violations = format.check(source.text, source.file, kMostOfDocument);
    for (const xml::Violation& violation : violations)
        findings.add(findingAt(source, violation.place, violation.name, violation.element, violation.text));
    return violations.empty();
}

const records::FormatRow& formatOf(const Source& source) {
    const std::string name = source.file.substr(source.file.rfind('/') + 1);
    if (name == "hw_emu.xml") return *records::findFormat("emu");
    if (name == "cfa.xml" || name == "lfa.xml") return *records::findFormat("cfa");
    if (const records::FormatRow* row = records::findFormat(HUTFile::getExt(source.file))) return *row;
    const records::FormatRow* best = &records::formats().front();
    std::uint64_t furthest = 0;
    for (const records::FormatRow& row : records::formats()) {
        const xml::Violations violations = row.check(source.text, source.file, 1);
        if (violations.empty()) return row;
        const xml::Violation& first = violations.front();
        // A fault in the document element itself stands where that of another root stands.
        const std::uint64_t reached = first.name == xml::fault::kWrongRoot ? 0 : first.place.offset + 1;
        if (reached <= furthest) continue;
        best = &row;
        furthest = reached;
    }
    return *best;
}

}  // namespace check
