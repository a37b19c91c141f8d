#pragma once
#include <optional>
#include <string>
#include <string_view>

/// The value of an attribute, named without a namespace, of the root element of an XML document. No value if it is
/// missing, the document is not well-formed up to the root's start tag, or it has a DOCTYPE. What follows is not
/// read.
std::optional<std::string> rootAttribute(std::string_view document, std::string_view attribute);
