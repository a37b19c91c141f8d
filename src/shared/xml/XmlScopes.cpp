#include "xml/XmlScopes.h"

#include <algorithm>

#include "text/HSTStringUtils.h"
#include "xml/XmlException.h"

namespace xml {

namespace {

constexpr std::string_view kXmlUri = "http://www.w3.org/XML/1998/namespace";
constexpr std::string_view kSchemaInstanceUri = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view kDeclaration = "xmlns";
constexpr std::size_t kMaxUri = 60;  // characters that are kept

}  // namespace

std::string Scopes::declare(std::string_view attribute, std::string_view uri) {
    const bool isDefault = attribute == kDeclaration;
    const std::string_view prefix = isDefault ? std::string_view() : attribute.substr(kDeclaration.size() + 1);
    const bool isXml = uri == kXmlUri;
    if (!isDefault && (uri.empty() || prefix.empty() || prefix == kDeclaration || isXml != (prefix == "xml")))
        return HSTStringUtils::excerpt(attribute) + "=\"" + HSTStringUtils::excerpt(uri) +
               "\" is not a valid namespace declaration";
    const Space space = uri.empty()                 ? Space::none
                        : uri == formatUri_         ? Space::format
                        : uri == kSchemaInstanceUri ? Space::schemaInstance
                        : isXml                     ? Space::xml
                                                    : Space::other;
    bindings_.push_back(
        {std::string(prefix), space, space == Space::other ? HSTStringUtils::excerpt(uri, kMaxUri) : std::string()});
    return {};
}

std::string Scopes::resolveElement(std::string_view qualified, Name& name) const {
    return resolve_(qualified, false, name);
}
std::string Scopes::resolveAttribute(std::string_view qualified, Name& name) const {
    return resolve_(qualified, true, name);
}

std::string Scopes::resolve_(std::string_view qualified, bool attribute, Name& name) const {
    const auto colon = qualified.find(':');
    const bool bare = colon == std::string_view::npos;
    const std::string_view prefix = bare ? std::string_view() : qualified.substr(0, colon);
    const std::string_view local = bare ? qualified : qualified.substr(colon + 1);
    name = {qualified, local, Space::none};
    if (bare && attribute) return {};
    if (!bare && (prefix.empty() || local.empty() || local.find(':') != std::string_view::npos))
        return HSTStringUtils::excerpt(qualified) + " is not a valid name: it has a misplaced colon";
    if (prefix == "xml") {
        name.space = Space::xml;
        return {};
    }
    const Binding* binding = find_(prefix);
    if (!bare && !binding) return "the prefix of " + HSTStringUtils::excerpt(qualified) + " is not declared";
    if (binding) {
        name.space = binding->space;
        name.uri = binding->uri;
    }
    return {};
}

std::string_view Scopes::formatPrefix() const {
    const auto at = std::find_if(bindings_.rbegin(), bindings_.rend(),
                                 [](const Binding& b) { return b.space == Space::format && !b.prefix.empty(); });
    return at != bindings_.rend() ? std::string_view(at->prefix) : std::string_view();
}

const Scopes::Binding* Scopes::find_(std::string_view prefix) const {
    const auto at =
        std::find_if(bindings_.rbegin(), bindings_.rend(), [&](const Binding& b) { return b.prefix == prefix; });
    return at != bindings_.rend() ? &*at : nullptr;
}

}  // namespace xml
