#include "json/JsonProblem.h"

#include <charconv>
#include <string_view>

namespace json {

namespace {

/// Removes the " (column N)" that `parse` appends to a text.
std::uint64_t takeColumn(std::string& text) {
    constexpr std::string_view kOpen = " (column ";
    const auto at = text.rfind(kOpen);
    if (at == std::string::npos) return 0;
    std::uint64_t column = 0;
    std::from_chars(text.data() + at + kOpen.size(), text.data() + text.size(), column);
    text.erase(at);
    return column;
}

}  // namespace

/// The error names what was parsed: a member, "archive!member" or a file; it is empty if a tree was written.
FileProblem problemOf(const boost::property_tree::json_parser_error& e, const std::string& file,
                      const std::string& member) {
    FileProblem problem{.file = file, .member = member, .line = e.line(), .text = e.message()};
    if (e.line() > 0) problem.column = takeColumn(problem.text);  // otherwise it may be the end of a key
    const std::string name = e.filename();
    if (name.starts_with(file + "!"))
        problem.member = name.substr(file.size() + 1);
    else if (!name.empty())
        (member.empty() ? problem.file : problem.member) = name;
    return problem;
}

}  // namespace json
