#pragma once
#include <string>

namespace teq_platform {
class JSONSerializable;
}
class HTEQHardwarePlatform;

namespace hardware {

/// The document of `object`, if wanted without a key. Throws `HEXFileFault` for `file` if `hardware`, which may be
/// null, has extension metadata that is not JSON, or if the document cannot be written.
std::string textOf(const teq_platform::JSONSerializable& object, const HTEQHardwarePlatform* hardware,
                   const std::string& file, const char* without = nullptr);

}  // namespace hardware
