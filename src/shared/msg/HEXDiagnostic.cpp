#include "msg/HEXDiagnostic.h"

#include "text/HSTStringUtils.h"

namespace {

// Bytes that are shown. A longer path cannot be opened.
constexpr std::size_t kMaxPath = 4096, kMaxText = 4000;

std::string sentence(const HEXDiagnostic& diagnostic, std::string_view severity) {
    std::string sentence = diagnostic.place();
    for (const std::string_view part :
         {severity, std::string_view(diagnostic.element), std::string_view(diagnostic.text)})
        if (!part.empty()) sentence += (sentence.empty() ? "" : ": ") + HSTStringUtils::excerpt(part, kMaxText);
    return sentence;
}

}  // namespace

std::string HEXDiagnostic::place() const {
    std::string place = HSTStringUtils::excerpt(file, kMaxPath);
    if (!member.empty()) place += "!" + HSTStringUtils::excerpt(member, kMaxPath);
    if (line > 0) place += ":" + std::to_string(line);
    if (line > 0 && column > 0) place += ":" + std::to_string(column);
    return place;
}

std::string HEXDiagnostic::format() const { return sentence(*this, {}); }

std::string HEXDiagnostic::report(std::string_view severity) const {
    const std::string report = sentence(*this, severity);
    const std::string& mark = name.empty() ? id : name;
    return mark.empty() ? report : report + " [" + mark + "]";
}
