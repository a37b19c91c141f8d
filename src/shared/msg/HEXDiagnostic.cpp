#include "msg/HEXDiagnostic.h"

#include "text/HSTStringUtils.h"

std::string HEXDiagnostic::place() const {
    std::string place = HSTStringUtils::printable(file);
    if (!member.empty()) place += "!" + HSTStringUtils::printable(member);
    if (line > 0) place += ":" + std::to_string(line);
    if (line > 0 && column > 0) place += ":" + std::to_string(column);
    return place;
}

std::string HEXDiagnostic::format() const {
    const std::string at = place();
    return (at.empty() ? "" : at + ": ") + HSTStringUtils::printable(text);
}

std::string HEXDiagnostic::report(std::string_view severity) const {
    std::string report = place();
    for (const std::string_view part : {severity, std::string_view(text)})
        if (!part.empty()) report += (report.empty() ? "" : ": ") + HSTStringUtils::printable(part);
    return id.empty() ? report : report + " [" + id + "]";
}
