#pragma once
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {
class PlatformLoader;
}

namespace teq::platform {

/// A flat report of each platform; see `NativeCatalogService`.
class ZR_API CatalogService {
public:
    using Loader = teq_platform::PlatformLoader;

    // The order of the virtual functions is part of the ABI: a new one goes after the last. The last argument of the
    // reports has no effect.
    virtual ~CatalogService() = default;
    virtual std::string getAllAsJsonStr(const std::string& paths, bool detailed, bool unused) const = 0;
    virtual std::string getAsJsonStr(const std::string& file, bool detailed, bool unused) const = 0;
    virtual std::string getAsJsonStr(Loader* loader, bool detailed, bool unused) const = 0;
    virtual std::string getValue(const std::string& file, const std::string& key) const = 0;
    virtual std::string getValue(Loader* loader, const std::string& key) const = 0;
};

}  // namespace teq::platform
