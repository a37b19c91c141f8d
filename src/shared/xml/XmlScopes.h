#pragma once
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace xml {

/// What a namespace is to the format that is read.
enum class Space { none, format, schemaInstance, xml, other };

/// A qualified name and the parts of it. Views into the name.
struct Name {
    std::string_view qualified;  ///< as it stands in the document
    std::string_view local;
    Space space = Space::none;
};

/// The namespace declarations in force. The parser's own name spaces are not used: it copies a namespace's URI for
/// every attribute of a tag before anyone can object, so that a document of 1 MB takes more than 1 GB.
class Scopes {
public:
    /// At most this many declarations may be in force at once, so that a look-up stays short.
    static constexpr std::size_t kMost = 100;

    /// `formatUri` is the one that counts as `Space::format`; empty for a format in no namespace.
    explicit Scopes(std::string_view formatUri) : formatUri_(formatUri) {}

    /// Whether the name of an attribute is "xmlns", or begins with "xmlns:".
    static bool isDeclaration(const char* attribute) {
        return *attribute == 'x' && std::strncmp(attribute, "xmlns", 5) == 0 &&
               (attribute[5] == '\0' || attribute[5] == ':');
    }
    /// Adds a declaration of the tag that is being read. Empty, or what is wrong with it.
    std::string declare(std::string_view attribute, std::string_view uri);
    std::size_t size() const { return bindings_.size(); }
    /// Drops what has been declared since there were `size` declarations.
    void shrink(std::size_t size) { bindings_.resize(size); }

    /// Empty, or what is wrong with the name. An attribute without a prefix is in no namespace.
    std::string resolveElement(std::string_view qualified, Name& name) const;
    std::string resolveAttribute(std::string_view qualified, Name& name) const;

private:
    struct Binding {
        std::string prefix;
        Space space;
    };
    std::string resolve_(std::string_view qualified, bool attribute, Name& name) const;
    const Binding* find_(std::string_view prefix) const;

    std::string_view formatUri_;
    std::vector<Binding> bindings_;
};

}  // namespace xml
