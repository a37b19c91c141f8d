#include "readers/Problem.h"

#include "json/JsonProblem.h"
#include "xml/XmlException.h"

namespace readers {

FileProblem problemOf(const std::exception& e, const std::string& file, const std::string& member) {
    if (const auto* xml = dynamic_cast<const xml::Exception*>(&e))
        return {.file = file, .member = member, .line = xml->line(), .column = xml->column(), .text = xml->text()};
    if (const auto* json = dynamic_cast<const boost::property_tree::json_parser_error*>(&e))
        return json::problemOf(*json, file, member);
    if (const auto* fault = dynamic_cast<const HEXFileFault*>(&e)) return fault->problem();
    return {.file = file, .member = member, .text = e.what()};
}

}  // namespace readers
