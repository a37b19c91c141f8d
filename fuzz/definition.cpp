#include "ReadFile.h"
#include "hwdb/HHDFHwDefUtils.h"
#include "hwdb/HardwareDefinition.h"
#include "kit/ZipBuilder.h"
#include "msg/HEXFileFault.h"

/// The input is the XML of a hardware definition: if the strict way of reading it finds a top module, so does the other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string xml(reinterpret_cast<const char*>(data), size);
    const std::string zip = builder::archiveOf({builder::Entry("hwdef.xml", xml)}).build();
    const std::string file = fileOf(reinterpret_cast<const std::uint8_t*>(zip.data()), zip.size());
    const auto definition = HHDFHwDefUtils::getHDF(file);
    std::string top;
    try {
        top = hwdb::readDefinition(file)->getHierTopModuleName();
    } catch (const HEXFileFault&) {  // no top module, or a document that is not well-formed after it
        return 0;
    }
    require(definition && top == definition->getHierTopModuleName(), "both find the same top module");
    return 0;
}
