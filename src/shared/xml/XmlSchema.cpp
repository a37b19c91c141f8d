#include "xml/XmlSchema.h"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <set>

namespace xml {

namespace {

// What the reader skips on each element.
constexpr const char* kSkipped =
    "<xs:anyAttribute namespace=\"http://www.w3.org/XML/1998/namespace "
    "http://www.w3.org/2001/XMLSchema-instance\" processContents=\"skip\"/>";
constexpr const char* kNothing = "nothing";  ///< the simple type of blanks: empty content would not allow them

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '"')
            result += "&quot;";
        else
            result += c;
    }
    return result;
}

/// A whole format as the kinds of its elements, by name, in document order.
class Schema {
public:
    explicit Schema(const Format& format)
        : format_(format), prefix_(*format.uri ? std::string(format.prefix) + ":" : "") {
        collect_(format.root, "", *format.element);
    }

    std::string text() {
        line_(0, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
        open_();
        element_(1, format_.root, *format_.element, "", format_.doc);
        for (const ValueType* type : numbers_) number_(*type);
        if (usesNothing_) nothing_();
        for (const auto& [name, element] : types_) type_(name, *element);
        line_(0, "</xs:schema>");
        return std::move(out_);
    }

private:
    static bool hasContent(const Element& element) {
        return !element.children.empty() || !element.alternatives.empty();
    }

    template <class Take>
    static void forEachChild(const Element& element, Take take) {
        for (const Child& child : element.children) take(child);
        for (const Alternative& alternative : element.alternatives)
            for (const Child& child : alternative.children) take(child);
    }

    /// Names the element's kind, and those of all elements in it. Formats are not recursive.
    void collect_(const std::string& name, const std::string& parent, const Element& element) {
        if (names_.contains(&element)) return;
        std::string own = element.text ? "text" : name;
        if (taken_.contains(own)) own = parent + "." + name;
        taken_.insert(own);
        names_[&element] = own;
        types_.emplace_back(own, &element);
        usesNothing_ |= !element.text && !hasContent(element);
        for (const Attribute& attribute : element.attributes)
            if (attribute.type->lowest != 0 || attribute.type->highest != 0) keepNumber_(attribute.type);
        forEachChild(element, [&](const Child& child) { collect_(child.name, own, *child.element); });
    }

    void keepNumber_(const ValueType* type) {
        // Booleans have bounds too, but a type of the schema language.
        const bool own = std::string_view(type->schema).find(':') == std::string_view::npos;
        if (own && std::ranges::find(numbers_, type) == numbers_.end()) numbers_.push_back(type);
        if (own) taken_.insert(type->schema);
    }

    void line_(unsigned depth, const std::string& text) { out_ += std::string(2UL * depth, ' ') + text + '\n'; }

    void open_() {
        if (!*format_.uri) {
            line_(0, "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">");
            return;
        }
        line_(0, "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\"");
        line_(0, fmt::format("           xmlns:{}=\"{}\" targetNamespace=\"{}\"", format_.prefix, format_.uri,
                             format_.uri));
        line_(0, "           elementFormDefault=\"qualified\" attributeFormDefault=\"qualified\">");
    }

    void documentation_(int depth, std::string_view doc) {
        line_(depth, "<xs:annotation><xs:documentation>" + escaped(doc) + "</xs:documentation></xs:annotation>");
    }

    /// A tag without its end, and its documentation.
    void documented_(int depth, const char* tag, const std::string& start, const std::string& doc) {
        if (doc.empty()) {
            line_(depth, fmt::format("<{}{}/>", tag, start));
            return;
        }
        line_(depth, fmt::format("<{}{}>", tag, start));
        documentation_(depth + 1, doc);
        line_(depth, fmt::format("</{}>", tag));
    }

    void element_(int depth, const char* name, const Element& element, const std::string& occurs,
                  const std::string& doc) {
        documented_(depth, "xs:element",
                    fmt::format(" name=\"{}\" type=\"{}{}\"{}", name, prefix_, names_.at(&element), occurs), doc);
    }

    void child_(int depth, const Child& child) {
        std::string occurs;
        if (!child.neededToRead()) occurs += " minOccurs=\"0\"";
        if (child.repeats())
            occurs +=
                child.most == kUnbounded ? " maxOccurs=\"unbounded\"" : fmt::format(" maxOccurs=\"{}\"", child.most);
        std::string doc = child.doc;
        if (child.occurs == Occurs::onceWhenWritten)
            doc += std::string(doc.empty() ? "" : " ") +
                   "Readers take a document without it; one that is written has it.";
        element_(depth, child.name, *child.element, occurs, doc);
    }

    void sequence_(int depth, std::span<const Child> children) {
        line_(depth, "<xs:sequence>");
        for (const Child& child : children) child_(depth + 1, child);
        line_(depth, "</xs:sequence>");
    }

    void attributes_(int depth, const Element& element) {
        for (const Attribute& attribute : element.attributes) {
            const std::string_view type = attribute.type->schema;
            const bool own = type.find(':') == std::string_view::npos;
            documented_(depth, "xs:attribute",
                        fmt::format(" name=\"{}\" type=\"{}{}\"{}", attribute.name, own ? prefix_ : "", type,
                                    attribute.required ? " use=\"required\"" : ""),
                        attribute.doc);
        }
        line_(depth, kSkipped);
    }

    void type_(const std::string& name, const Element& element) {
        line_(1, fmt::format("<xs:complexType name=\"{}\">", name));
        if (hasContent(element)) {
            content_(element);
            attributes_(2, element);
        } else {
            const std::string base = element.text ? "xs:string" : prefix_ + kNothing;
            line_(2, "<xs:simpleContent>");
            line_(3, fmt::format("<xs:extension base=\"{}\">", base));
            attributes_(4, element);
            line_(3, "</xs:extension>");
            line_(2, "</xs:simpleContent>");
        }
        line_(1, "</xs:complexType>");
    }

    void content_(const Element& element) {
        if (element.alternatives.empty()) {
            sequence_(2, element.children);
            return;
        }
        line_(2, "<xs:choice>");
        for (const Alternative& alternative : element.alternatives) sequence_(3, alternative.children);
        line_(2, "</xs:choice>");
    }

    /// The bounds are those of the reader: a sign and leading zeros are allowed.
    void number_(const ValueType& type) {
        line_(1, fmt::format("<xs:simpleType name=\"{}\">", type.schema));
        line_(2, "<xs:restriction base=\"xs:integer\">");
        line_(3, fmt::format("<xs:minInclusive value=\"{}\"/>", type.lowest));
        line_(3, fmt::format("<xs:maxInclusive value=\"{}\"/>", type.highest));
        line_(2, "</xs:restriction>");
        line_(1, "</xs:simpleType>");
    }

    void nothing_() {
        line_(1, fmt::format("<xs:simpleType name=\"{}\">", kNothing));
        documentation_(2, "Blanks, comments and processing instructions only.");
        line_(2, "<xs:restriction base=\"xs:token\">");
        line_(3, "<xs:length value=\"0\"/>");
        line_(2, "</xs:restriction>");
        line_(1, "</xs:simpleType>");
    }

    const Format& format_;
    const std::string prefix_;
    std::map<const Element*, std::string> names_;
    std::set<std::string> taken_{kNothing};
    std::vector<std::pair<std::string, const Element*>> types_;
    std::vector<const ValueType*> numbers_;
    bool usesNothing_ = false;
    std::string out_;
};

}  // namespace

std::string schemaOf(const Format& format) { return Schema(format).text(); }

}  // namespace xml
