#include "zip/ExtraFields.h"

#include <libdeflate.h>

#include "zip/LittleEndian.h"

namespace zip {
namespace {

/// Its version, the CRC of the header's name, and the name in UTF-8.
constexpr std::uint16_t kUnicodePathField = 0x7075;
/// A copy of the entry's attributes, which one library believes when it reads an archive as a stream.
constexpr std::uint16_t kAttributesField = 0x6C78;

bool isPadding(std::string_view bytes) { return bytes.size() < 4 && bytes.find_first_not_of('\0') == bytes.npos; }

}  // namespace

ExtraField findExtraField(std::string_view extraFields, std::uint16_t id) {
    ExtraField found;
    while (!isPadding(extraFields)) {
        if (extraFields.size() < 4 || extraFields.size() - 4 < u16(&extraFields[2])) return {false, {}};
        const std::uint16_t size = u16(&extraFields[2]);
        if (u16(&extraFields[0]) == id) {
            if (found.bytes) return {false, {}};
            found.bytes = extraFields.substr(4, size);
        }
        extraFields.remove_prefix(4 + std::size_t{size});
    }
    return found;
}

bool extraFieldsAgree(std::string_view extraFields, std::string_view name) {
    const ExtraField path = findExtraField(extraFields, kUnicodePathField);
    if (!path.isSound || findExtraField(extraFields, kAttributesField).bytes) return false;
    if (!path.bytes) return true;
    return path.bytes->size() >= 5 && path.bytes->front() == 1 &&
           u32(&(*path.bytes)[1]) == libdeflate_crc32(0, name.data(), name.size()) && path.bytes->substr(5) == name;
}

}  // namespace zip
