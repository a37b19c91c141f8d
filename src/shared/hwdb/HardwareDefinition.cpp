#include "hwdb/HardwareDefinition.h"

#include "hwdb/RootAttribute.h"
#include "msg/HEXFileFault.h"
#include "text/HSTStringUtils.h"
#include "zip/Request.h"

namespace hwdb {

std::unique_ptr<HHDFHwDef> readDefinition(const std::string& file) {
    const auto archive = zip::openShared(file);
    std::string top, of;
    for (const std::string name : {"sysdef.xml", "hwdef.xml"}) {
        const zip::Member* const member = archive->find(name);
        if (!member) continue;
        auto [found, fault] = rootOfWhole(archive->read(*member), "top");
        if (!fault.text.empty()) {
            fault.file = file;
            fault.member = name;
            throw HEXFileFault(fault);
        }
        if (!found || found->empty())
            throw HEXFileFault(
                {.file = file, .member = name, .text = "no root element with an attribute \"top\" was found"});
        if (!of.empty() && *found != top)
            throw HEXFileFault({.file = file,
                                .member = name,
                                .text = "names the top module '" + HSTStringUtils::excerpt(*found) + "', but " + of +
                                        " names '" + HSTStringUtils::excerpt(top) + "'"});
        top = *found;
        of = name;
    }
    if (of.empty())
        throw HEXFileFault({.file = file, .text = "no hardware definition: no member sysdef.xml or hwdef.xml"});
    return std::make_unique<HHDFHwDef>(file, top);
}

}  // namespace hwdb
