#pragma once
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace xml {

/// The role of a namespace for the format being read.
enum class Space { none, format, schemaInstance, xml, other };

/// A qualified name and its parts, as views into the name.
struct Name {
    std::string_view qualified;  ///< as in the document
    std::string_view local;
    Space space = Space::none;
    std::string_view uri = {};  ///< of a namespace that is not the format's; valid until its declaration is removed
};

/// The namespace declarations in force. The parser's namespace support is not used: it copies a namespace's URI for
/// every attribute of a tag before that can be prevented, so that a document of 1 MB takes more than 1 GB.
class Scopes {
public:
    /// The maximum number of declarations in force at once, which keeps a look-up short.
    static constexpr std::size_t kMax = 100;

    /// `formatUri`: the namespace of `Space::format`; empty for a format in no namespace.
    explicit Scopes(std::string_view formatUri) : formatUri_(formatUri) {}

    /// Whether the name of an attribute is "xmlns", or begins with "xmlns:".
    static bool isDeclaration(const char* attribute) {
        return *attribute == 'x' && std::strncmp(attribute, "xmlns", 5) == 0 &&
               (attribute[5] == '\0' || attribute[5] == ':');
    }
    /// Adds a declaration of the current tag. Returns an empty text or what is wrong with it.
    std::string declare(std::string_view attribute, std::string_view uri);
    std::size_t size() const { return bindings_.size(); }
    /// Removes all declarations after the first `size`.
    void shrink(std::size_t size) { bindings_.resize(size); }

    /// A prefix of the format's namespace; empty if it has none.
    std::string_view formatPrefix() const;

    /// Returns an empty text or what is wrong with the name. An attribute without a prefix is in no namespace.
    std::string resolveElement(std::string_view qualified, Name& name) const;
    std::string resolveAttribute(std::string_view qualified, Name& name) const;

private:
    struct Binding {
        std::string prefix;
        Space space;
        std::string uri;  ///< its beginning, for messages
    };
    std::string resolve_(std::string_view qualified, bool attribute, Name& name) const;
    const Binding* find_(std::string_view prefix) const;

    std::string_view formatUri_;
    std::vector<Binding> bindings_;
};

}  // namespace xml
