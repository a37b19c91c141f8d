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

/// Fewer than four zero bytes at the end are padding, with which some tools align the data of members.
ExtraField findExtraField(std::string_view extraFields, std::uint16_t id);

/// Whether a reader that prefers extra fields to the header sees a member of the name `name`, which is the header's,
/// and of the header's type. Also false if the fields are malformed.
bool extraFieldsAgree(std::string_view extraFields, std::string_view name);

}  // namespace zip
