#pragma once
#include <optional>
#include <string>
#include <string_view>

/// The value of an attribute, named without a namespace, of the root element of an XML document. Nothing when it is
/// not there, or the document is not well formed as far as the root's start, or has a DOCTYPE. What follows is not
/// read.
std::optional<std::string> rootAttribute(std::string_view document, std::string_view attribute);
