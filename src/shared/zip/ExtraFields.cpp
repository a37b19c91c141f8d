#include "zip/ExtraFields.h"

#include <libdeflate.h>

#include <algorithm>
#include <vector>

#include "zip/LittleEndian.h"

namespace zip {
namespace {

/// Its version, the CRC of the header's name, and the name in UTF-8.
constexpr std::uint16_t kUnicodePathField = 0x7075;
/// A copy of the entry's attributes, which one library believes when it reads an archive as a stream.
constexpr std::uint16_t kAttributesField = 0x6C78;

struct Field {
    std::uint16_t id = 0;
    std::string_view bytes;
};

/// Removes the first field. False at the end, which may be padding of fewer than four bytes, or if it is malformed.
bool takeField(std::string_view& extraFields, Field& field) {
    if (extraFields.size() < 4 || extraFields.size() - 4 < u16(&extraFields[2])) return false;
    field = {u16(&extraFields[0]), extraFields.substr(4, u16(&extraFields[2]))};
    extraFields.remove_prefix(4 + field.bytes.size());
    return true;
}

}  // namespace

bool areExtraFieldsSound(std::string_view extraFields) {
    std::vector<std::uint16_t> ids;
    for (Field field; takeField(extraFields, field);)
        if (field.id != 0 || !field.bytes.empty()) ids.push_back(field.id);
    std::ranges::sort(ids);
    return std::ranges::adjacent_find(ids) == ids.end() && extraFields.size() < 4 &&
           extraFields.find_first_not_of('\0') == extraFields.npos;
}

std::optional<std::string_view> findExtraField(std::string_view extraFields, std::uint16_t id) {
    for (Field field; takeField(extraFields, field);)
        if (field.id == id) return field.bytes;
    return std::nullopt;
}

bool extraFieldsAgree(std::string_view extraFields, std::string_view name) {
    if (findExtraField(extraFields, kAttributesField)) return false;
    const auto path = findExtraField(extraFields, kUnicodePathField);
    return !path || (path->size() >= 5 && path->front() == 1 &&
                     u32(&(*path)[1]) == libdeflate_crc32(0, name.data(), name.size()) && path->substr(5) == name);
}

}  // namespace zip
