#include "zip/ExtraFields.h"

#include "zip/LittleEndian.h"

zip::Zip64Field zip::findZip64(std::string_view extraFields) {
    Zip64Field found;
    while (!extraFields.empty()) {
        if (extraFields.size() < 4 || extraFields.size() - 4 < u16(&extraFields[2])) return {false, {}};
        const std::uint16_t id = u16(&extraFields[0]), size = u16(&extraFields[2]);
        if (id == 1) {
            if (found.bytes) return {false, {}};
            found.bytes = extraFields.substr(4, size);
        }
        extraFields.remove_prefix(4 + std::size_t{size});
    }
    return found;
}
