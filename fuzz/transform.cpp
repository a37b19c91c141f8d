#include <boost/property_tree/exceptions.hpp>
#include <cstdint>
#include <string>

#include "Check.h"
#include "platform/HTEQTmpDirObject.h"
#include "platform/NativeTransformService.h"
#include "util/WholeFile.h"

/// The input is a transform specification: its text is returned unchanged, and its entries are counted or the property
/// tree's exception says why not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const HTEQTmpDirObject scratch("transform");
    const std::string file = scratch.get() + "/spec.json", input(reinterpret_cast<const char*>(data), size);
    wholefile::replace(file, input);
    const teq::platform::NativeTransformService service;
    require(service.getTransformSpecAsJsonStr(file) == input, "the text is unchanged");
    try {
        require(service.getObjectsBySpec("platform", file) >= 0, "entries are counted");
    } catch (const boost::property_tree::ptree_error&) {
    }
    return 0;
}
