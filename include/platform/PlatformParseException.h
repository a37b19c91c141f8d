#pragma once
#include <stdexcept>

#include "text/ZrApi.h"

namespace teq_platform {

/// A descriptor, hardware or software file that could not be read. Inside `PlatformLoader::load` it becomes a message
/// and a null result.
class ZR_API PlatformParseException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace teq_platform
