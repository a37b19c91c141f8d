#pragma once
#include "check/Findings.h"
#include "json/JsonShape.h"
#include "json/JsonText.h"

namespace check {

/// The way to a value, made on the stack while walking and a text only for a finding: "devices[0].core".
struct Path {
    const Path* parent = nullptr;
    const char* key = nullptr;  ///< null for an item of a list
    std::size_t index = 0;

    std::string text() const;
};

/// A JSON document that is checked. Findings are made at values of the tree; their places are worked out at the end.
class JsonCheck {
public:
    /// Parses the text, which must outlive the check.
    explicit JsonCheck(const Source& source);

    /// Null when the text is no JSON.
    const json::ptree* document() const { return parsed_ ? &tree_ : nullptr; }

    /// Holds the document against what its reader looks at.
    void checkShapes(json::Shapes shapes);
    /// `value` stands in the document, at `path`.
    void add(const char* name, const json::ptree& value, const Path& path, std::string text);

    /// Gives the findings, in the order of the text.
    void report(Findings& findings);

private:
    struct Found {
        const char* name;
        const json::ptree* value;
        std::string path, text;
    };

    void checkKeys_(const json::ptree& object, json::Shapes shapes, const Path& path);
    void checkValue_(const json::ptree& value, const json::Shape& shape, const Path& path);
    void checkScalar_(const json::ptree& value, json::Form form, const Path& path);
    void checkItems_(const json::ptree& list, const json::Shape& shape, const Path& path);
    bool isObject_(const json::ptree& value, const Path& path);
    bool isList_(const json::ptree& value, const Path& path);

    const Source& source_;
    json::ptree tree_;
    bool parsed_ = false;
    std::vector<Found> found_;
    Findings own_;
};

}  // namespace check
