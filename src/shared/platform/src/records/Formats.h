#pragma once
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "xml/XmlReader.h"

/// The XML formats by their names for users; every choice of a format uses this list.
namespace records {

/// A document that has been held against its format.
struct Checked {
    std::shared_ptr<void> record;  ///< of the format's own type; of no use when there are violations
    xml::Violations violations;
};

struct FormatRow {
    const char* name;  ///< also the extension of its schema: "zdf" of "zdf.xsd"
    const char* what;  ///< "a platform descriptor"
    const xml::Format* format;
    /// Reads the document and finds every fault of it, at most `most`.
    Checked (*read)(std::string_view text, const std::string& file, std::size_t most);

    xml::Violations check(std::string_view text, const std::string& file, std::size_t most) const {
        return read(text, file, most).violations;
    }
};

std::span<const FormatRow> formats();
/// Null for an unknown name.
const FormatRow* findFormat(std::string_view name);

}  // namespace records
