#include "hwdb/HHDFHwDefUtils.h"

#include "hwdb/RootAttribute.h"
#include "zip/ArchiveError.h"
#include "zip/Request.h"

std::unique_ptr<HHDFHwDef> HHDFHwDefUtils::getHDF(const std::string& file) {
    try {
        const auto archive = zip::openShared(file);
        for (const char* const name : {"sysdef.xml", "hwdef.xml"}) {
            const zip::Member* const member = archive->find(name);
            if (!member) continue;
            const auto top = rootAttribute(archive->read(*member), "top");
            if (top && !top->empty()) return std::make_unique<HHDFHwDef>(file, *top);
        }
    } catch (const zip::ArchiveError&) {  // no definition: callers need not know why
    }
    return nullptr;
}
