#pragma once
#include <cstdint>
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {
class PlatformLoader;
}

namespace teq::platform {

/// Questions put as a file; see `NativeTransformService`.
class ZR_API TransformService {
public:
    using Loader = teq_platform::PlatformLoader;

    // The order of the virtual functions is part of the ABI: a new one goes after the last.
    virtual ~TransformService() = default;
    virtual std::string getAsJsonStr(const std::string& file) const = 0;
    virtual std::string getAsJsonStr(Loader* loader) const = 0;
    virtual std::string getTransformSpecAsJsonStr(const std::string& specification) const = 0;
    virtual std::int32_t getObjectsBySpec(const std::string& file, const std::string& specification) const = 0;
    virtual std::string getObjectsBySpec(Loader* loader, const std::string& specification) const = 0;
};

}  // namespace teq::platform
