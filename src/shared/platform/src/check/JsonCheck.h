#pragma once
#include <set>

#include "check/Findings.h"
#include "json/JsonShape.h"
#include "json/JsonText.h"

namespace check {

/// The path of a value, such as "devices[0].core". Kept on the stack; the text is made only for a finding.
struct Path {
    const Path* parent = nullptr;
    const char* key = nullptr;  ///< null for an item of a list
    std::size_t index = 0;

    std::string text() const;
};

/// Checks a JSON document. Findings refer to values of the tree; `report` computes their locations.
class JsonCheck {
public:
    /// Parses the text, which must outlive the check.
    explicit JsonCheck(const Source& source);

    /// Null if the text is not JSON.
    const json::ptree* document() const { return parsed_ ? &tree_ : nullptr; }

    /// Checks the document against the keys that its reader uses.
    void checkShapes(json::Shapes shapes);
    /// Checks a document whose keys may occur any number of times, each with an object of its own. `shapesOf` gives the
    /// keys that are read of such an object; null for a key that is ignored.
    void checkEach(const std::vector<json::Shape>* (*shapesOf)(std::string_view key, const json::ptree& object));
    /// Adds a finding. `value` is in the document, at `path`.
    void add(const char* name, const json::ptree& value, const Path& path, std::string text);
    /// Whether `value` is a list, or nothing.
    static bool isList(const json::ptree& value);

    /// Adds the findings to `findings`, in document order.
    void report(Findings& findings);

private:
    struct Found {
        const char* name;
        const json::ptree* value;
        std::string path, text;
    };

    void checkKeys_(const json::ptree& object, json::Shapes shapes, const Path& path);
    void checkKnown_(const json::ptree& object, json::Shapes shapes, const Path& path);
    void checkValue_(const json::ptree& value, const json::Shape& shape, const Path& path);
    void checkScalar_(const json::ptree& value, const json::Shape& shape, const Path& path);
    void checkDuplicates_(const json::ptree& value, const Path& path);
    void checkItems_(const json::ptree& list, const json::Shape& shape, const Path& path);
    bool isObject_(const json::ptree& value, const Path& path);
    bool isList_(const json::ptree& value, const Path& path);

    const Source& source_;
    json::ptree tree_;
    bool parsed_ = false;
    std::vector<Found> found_;
    std::size_t more_ = 0;             ///< than `found_` has
    const char* firstMore_ = nullptr;  ///< the name of the first of these
    std::set<const json::ptree*> refused_;
    Findings own_;
};

}  // namespace check
