#include "json/JsonSchema.h"

#include "text/HSTStringUtils.h"

namespace json {
namespace {

std::string object(Shapes shapes, const std::string& indent);

/// An empty list may be an empty text, as the property tree writes it.
std::string value(const Shape& shape, const std::string& indent) {
    const std::string deeper = indent + "    ";
    switch (shape.form) {
        case Form::object: return "{\n" + object(shape.inner ? shape.inner() : Shapes(), deeper) + indent + "}";
        case Form::list:
            return "{\n" + deeper + "\"type\": [\"array\", \"string\"],\n" + deeper + "\"maxLength\": 0,\n" + deeper +
                   "\"items\": {\n" + object(shape.inner ? shape.inner() : Shapes(), deeper + "    ") + deeper +
                   "}\n" + indent + "}";
        case Form::texts: return R"({"type": ["array", "string"], "maxLength": 0})";
        case Form::unknown: return "{}";
        default: return R"({"type": ["string", "number", "boolean", "null"]})";
    }
}

std::string object(Shapes shapes, const std::string& indent) {
    std::vector<std::string> required, properties;
    for (const Shape& shape : shapes) {
        const std::string name = "\"" + std::string(shape.name) + "\"";
        if (shape.required) required.push_back(name);
        properties.push_back(indent + "    " + name + ": " + value(shape, indent + "    "));
    }
    return indent + "\"type\": \"object\",\n" + indent + "\"required\": [" + HSTStringUtils::join(required, ", ") +
           "],\n" + indent + "\"properties\": {\n" + HSTStringUtils::join(properties, ",\n") + "\n" + indent + "}\n";
}

}  // namespace

std::string schemaOf(const std::string& title, Shapes shapes) {
    return "{\n    \"$schema\": \"https://json-schema.org/draft/2020-12/schema\",\n    \"title\": \"" + title +
           "\",\n" + object(shapes, "    ") + "}\n";
}

}  // namespace json
