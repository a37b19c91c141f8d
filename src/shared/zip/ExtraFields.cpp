#include "zip/ExtraFields.h"

#include "zip/LittleEndian.h"

zip::ExtraField zip::findExtraField(std::string_view extraFields, std::uint16_t id) {
    ExtraField found;
    while (!extraFields.empty()) {
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
