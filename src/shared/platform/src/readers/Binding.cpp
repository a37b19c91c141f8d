#include "readers/Binding.h"

namespace binding {

void readRows(std::span<const Row> rows, const void* record, void* object) {
    for (const Row& row : rows)
        if (row.read) row.read(record, object, row.onlySet);
}

void writeRows(std::span<const Row> rows, const void* object, void* record) {
    for (const Row& row : rows)
        if (row.write) row.write(object, record, row.unlessEmpty);
}

}  // namespace binding
