#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "platform/PlatformQueries.h"
#include "platform/PlatformRequests.h"
#include "platform/zr_platform.h"

struct zr_text {
    std::string bytes;
};

namespace capi {

/// `zr_options` in the library's types.
struct Options {
    teq_platform::HwMetadataMode mode = teq_platform::HwMetadataMode::Default;
    std::uint64_t budget = 0;  ///< bytes that may be decompressed
};
Options readOptions(const zr_options* given);

/// Returns a text to the caller through `to`.
void give(zr_text** to, std::string bytes);

}  // namespace capi

struct zr_platform {
    std::string file;  ///< as given
    capi::Options options;
    std::shared_ptr<HTEQPlatform> loaded;
    teq_platform::requests::Fields fields;
    std::unique_ptr<teq_platform::requests::Questions> questions;  ///< made by the first one
};
