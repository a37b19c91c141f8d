#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "msg/HEXFileFault.h"

/// The value of an attribute, named without a namespace, of the root element of an XML document. No value if it is
/// missing, the document is not well-formed up to the root's start tag, or it has a DOCTYPE. What follows is not
/// read.
std::optional<std::string> rootAttribute(std::string_view document, std::string_view attribute);

struct RootOfWhole {
    std::optional<std::string> value;
    HEXDiagnostic fault;  ///< with line and column; without a text if nothing is wrong
};
/// The same of a document that is read to its end. A document that is not well-formed or too deep, or has a DOCTYPE, is
/// a fault.
RootOfWhole rootOfWhole(std::string_view document, std::string_view attribute);
