#include "msg/HEXDiagnostic.h"

#include "text/HSTStringUtils.h"

namespace {

// Bytes that are shown. A longer path cannot be opened.
constexpr std::size_t kMaxPath = 4096, kMaxText = 4000;

}  // namespace

std::string HEXDiagnostic::place() const {
    std::string place = HSTStringUtils::excerpt(file, kMaxPath);
    if (!member.empty()) place += "!" + HSTStringUtils::excerpt(member, kMaxPath);
    if (line > 0) place += ":" + std::to_string(line);
    if (line > 0 && column > 0) place += ":" + std::to_string(column);
    return place;
}

std::string HEXDiagnostic::format() const {
    const std::string at = place();
    return (at.empty() ? "" : at + ": ") + HSTStringUtils::excerpt(text, kMaxText);
}

std::string HEXDiagnostic::report(std::string_view severity) const {
    std::string report = place();
    for (const std::string_view part : {severity, std::string_view(text)})
        if (!part.empty()) report += (report.empty() ? "" : ": ") + HSTStringUtils::excerpt(part, kMaxText);
    return id.empty() ? report : report + " [" + id + "]";
}
