#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

/// The extra fields of a local header or of a row of the central directory.
namespace zip {

struct ExtraField {
    bool isSound = true;                    ///< each field lies within the text, and this one is there once at most
    std::optional<std::string_view> bytes;  ///< of the field that was asked for
};

inline constexpr std::uint16_t kZip64Field = 1;

ExtraField findExtraField(std::string_view extraFields, std::uint16_t id);

}  // namespace zip
