#pragma once
#include <string>

#include "msg/HEXFileFault.h"
#include "platform/HwMetadataMode.h"

namespace msg {
class Capture;
}

namespace loading {

/// Why a platform could not be loaded, from what was said meanwhile; the most telling of it. `hardwareFile` is the
/// one that a descriptor names. Throws std::bad_alloc when that is why.
FileProblem loadFault(const std::string& file, const std::string& hardwareFile, teq_platform::HwMetadataMode mode,
                      const msg::Capture& said);

/// The most telling fault that readers told; `otherwise` is its text when they told none. Throws std::bad_alloc, too.
FileProblem readFault(const std::string& file, const msg::Capture& said, const std::string& otherwise);

}  // namespace loading
