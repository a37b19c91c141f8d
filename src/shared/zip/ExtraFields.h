#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

/// The extra fields of a local header or of an entry of the central directory.
namespace zip {

struct ExtraField {
    bool isSound = true;                    ///< each field is within the text, and this one occurs at most once
    std::optional<std::string_view> bytes;  ///< of the requested field
};

inline constexpr std::uint16_t kZip64Field = 1;

ExtraField findExtraField(std::string_view extraFields, std::uint16_t id);

}  // namespace zip
