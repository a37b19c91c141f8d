#include "platform/PlatformSchema.h"

#include "records/Formats.h"
#include "xml/XmlSchema.h"

namespace teq_platform {

HSTVector<std::string> PlatformSchema::formats() {
    HSTVector<std::string> names;
    for (const records::FormatRow& row : records::formats()) names.emplace_back(row.name);
    return names;
}

std::string PlatformSchema::text(const std::string& format) {
    const records::FormatRow* row = records::findFormat(format);
    return row ? xml::schemaOf(*row->format) : std::string();
}

}  // namespace teq_platform
