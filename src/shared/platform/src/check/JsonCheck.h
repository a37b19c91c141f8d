#pragma once
#include <set>

#include "check/Findings.h"
#include "json/JsonShape.h"

namespace check {

/// The path of a value, such as "devices[0].core". Kept on the stack; the text is made only for a finding.
struct Path {
    const Path* parent = nullptr;
    std::string_view key = {};  ///< without data for an item of a list
    std::size_t index = 0;

    std::string text() const;
};

/// Checks a JSON document. Findings refer to values of the document; `report` computes their locations.
class JsonCheck {
public:
    /// Parses the text, which must outlive the check.
    explicit JsonCheck(const Source& source);

    /// A missing value if the text is not JSON.
    json::Node document() const { return parsed_ ? document_.root() : json::Node(); }

    const json::Document& parsed() const { return document_; }

    /// Checks the document against the keys that its reader uses.
    void checkShapes(json::Shapes shapes);
    /// Checks only that no object has a key twice; `checkShapes` does this as well.
    void checkDuplicates() { checkDuplicates_(document(), {}); }
    /// Checks a document whose keys may occur any number of times, each with an object of its own. `shapesOf` gives the
    /// keys that are read of such an object; null for a key that is ignored.
    void checkEach(const std::vector<json::Shape>* (*shapesOf)(std::string_view key, json::Node object));
    /// Adds a finding. `value` is in the document, at `path`.
    void add(const char* name, json::Node value, const Path& path, std::string text);
    /// Whether further findings are only counted, so that their texts do not matter.
    bool isFull() const { return found_.size() == kMaxFindingsPerDocument; }
    /// Whether `value` is a list, or nothing.
    static bool isList(json::Node value);
    /// Whether a text is read as a number without loss of characters.
    static bool isNumber(std::string_view text);
    /// Whether the object lacks the key, but has one that is probably meant to be this one.
    static bool isMisspelled(json::Node object, std::string_view key);

    /// Adds the findings to `findings`, in document order.
    void report(Findings& findings);

private:
    struct Found {
        std::size_t order;  ///< in which they were added
        const char* name;
        json::Node value;
        std::string path, text;
    };

    void checkKeys_(json::Node object, json::Shapes shapes, const Path& path);
    void checkMissing_(json::Node object, const json::Shape& shape, const Path& path);
    void checkKnown_(json::Node object, json::Shapes shapes, const Path& path);
    void checkValue_(json::Node value, const json::Shape& shape, const Path& path);
    void checkScalar_(json::Node value, const json::Shape& shape, const Path& path);
    void checkDuplicates_(json::Node value, const Path& path);
    void checkItems_(json::Node list, const json::Shape& shape, const Path& path);
    bool isObject_(json::Node value, const Path& path);
    bool isList_(json::Node value, const Path& path);

    const Source& source_;
    json::Document document_;
    bool parsed_ = false;
    std::vector<Found> found_;
    std::size_t more_ = 0;             ///< than `found_` has
    const char* firstMore_ = nullptr;  ///< the name of the first of these
    std::set<std::uint32_t> refused_;  ///< the indexes of values
    std::set<std::uint32_t> meant_;    ///< the same of misspelled keys that have a finding already
    Findings own_;
};

}  // namespace check
