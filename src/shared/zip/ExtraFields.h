#pragma once
#include <optional>
#include <string_view>

/// The extra fields of a local header or of a row of the central directory.
namespace zip {

struct Zip64Field {
    bool isSound = true;                    ///< each field lies within the text, and zip64 is there once at most
    std::optional<std::string_view> bytes;  ///< of the zip64 field
};

Zip64Field findZip64(std::string_view extraFields);

}  // namespace zip
