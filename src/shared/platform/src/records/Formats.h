#pragma once
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "xml/XmlReader.h"

/// The XML formats by the names that users know; every choice of a format uses this list.
namespace records {

/// A document that has been checked against its format.
struct Checked {
    std::shared_ptr<void> record;  ///< of the format's own type; unusable if there are violations
    xml::Violations violations;
};

struct FormatRow {
    const char* name;  ///< also the extension of its schema: "zdf" of "zdf.xsd"
    const char* what;  ///< "a platform descriptor"
    const xml::Format* format;
    /// Reads the document and finds all its violations, at most `maxViolations`.
    Checked (*read)(std::string_view text, const std::string& file, std::size_t maxViolations);

    xml::Violations check(std::string_view text, const std::string& file, std::size_t maxViolations) const {
        return read(text, file, maxViolations).violations;
    }
};

std::span<const FormatRow> formats();
/// Null for an unknown name.
const FormatRow* findFormat(std::string_view name);

}  // namespace records
