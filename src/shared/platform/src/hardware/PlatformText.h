#pragma once
#include <string>

namespace teq_platform {
class JSONSerializable;
}

namespace hardware {

/// The document of `object`, if wanted without a key. Throws `HEXFileFault` when extension metadata that it includes
/// is not JSON, which is a fault of that member, or when the document cannot be written, a fault of `file`.
std::string textOf(const teq_platform::JSONSerializable& object, const std::string& file,
                   const std::string& without = "");

}  // namespace hardware
