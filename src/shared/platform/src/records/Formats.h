#pragma once
#include <span>
#include <string>
#include <string_view>

#include "xml/XmlReader.h"

/// The XML formats by their names for users; every choice of a format uses this list.
namespace records {

struct FormatRow {
    const char* name;  ///< also the extension of its schema: "zdf" of "zdf.xsd"
    const char* what;  ///< "a platform descriptor"
    const xml::Format* format;
    /// All errors of the document, at most `most`.
    xml::Violations (*check)(std::string_view text, const std::string& file, std::size_t most);
};

std::span<const FormatRow> formats();
/// Null for an unknown name.
const FormatRow* findFormat(std::string_view name);

}  // namespace records
