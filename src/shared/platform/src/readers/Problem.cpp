#include "readers/Problem.h"

#include <boost/property_tree/json_parser.hpp>
#include <charconv>
#include <string_view>

#include "xml/XmlException.h"

namespace readers {

namespace {

using boost::property_tree::json_parser_error;

/// Takes the " (COLUMN)" from the end of a text, where `json::parse` puts it.
std::uint64_t takeColumn(std::string& text) {
    constexpr std::string_view kOpen = " (column ";
    const auto at = text.rfind(kOpen);
    if (at == std::string::npos) return 0;
    std::uint64_t column = 0;
    std::from_chars(text.data() + at + kOpen.size(), text.data() + text.size(), column);
    text.erase(at);
    return column;
}

/// The error names what was parsed: a member, or "archive!member", or a file, or nothing when a tree was written.
FileProblem jsonProblem(const json_parser_error& e, const std::string& file, const std::string& member) {
    FileProblem problem{.file = file, .member = member, .line = e.line(), .text = e.message()};
    problem.column = takeColumn(problem.text);
    const std::string name = e.filename();
    if (name.starts_with(file + "!"))
        problem.member = name.substr(file.size() + 1);
    else if (!name.empty())
        (member.empty() ? problem.file : problem.member) = name;
    return problem;
}

}  // namespace

FileProblem problemOf(const std::exception& e, const std::string& file, const std::string& member) {
    if (const auto* xml = dynamic_cast<const xml::Exception*>(&e))
        return {.file = file, .member = member, .line = xml->line(), .column = xml->column(), .text = xml->text()};
    if (const auto* json = dynamic_cast<const json_parser_error*>(&e)) return jsonProblem(*json, file, member);
    if (const auto* fault = dynamic_cast<const HEXFileFault*>(&e)) return fault->problem();
    return {.file = file, .member = member, .text = e.what()};
}

}  // namespace readers
