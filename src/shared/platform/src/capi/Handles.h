#pragma once
#include <cstdint>
#include <string>

#include "platform/HwMetadataMode.h"
#include "platform/zr_platform.h"

struct zr_text {
    std::string bytes;
};

namespace capi {

/// `zr_options` as the library takes them.
struct Options {
    teq_platform::HwMetadataMode mode = teq_platform::HwMetadataMode::Default;
    std::uint64_t budget = 0;  ///< bytes to unpack
};
Options readOptions(const zr_options* given);

/// Puts a text where a caller of the interface wants it.
void give(zr_text** to, std::string bytes);

}  // namespace capi
