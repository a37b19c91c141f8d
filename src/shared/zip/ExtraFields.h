#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

/// The extra fields of a local header or of an entry of the central directory.
namespace zip {

inline constexpr std::uint16_t kZip64Field = 1;

/// Whether each field is within the text, and none occurs twice: of two, readers take either. Zero bytes are padding,
/// with which some tools align the data of members. The following functions expect sound fields.
bool areExtraFieldsSound(std::string_view extraFields);

/// The bytes of a field; no value if there is none.
std::optional<std::string_view> findExtraField(std::string_view extraFields, std::uint16_t id);

/// Whether a reader that prefers extra fields to the header sees a member of the name `name`, which is the header's,
/// and of the header's type.
bool extraFieldsAgree(std::string_view extraFields, std::string_view name);

}  // namespace zip
