#pragma once
#include <boost/property_tree/ptree.hpp>
#include <set>
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {
class PlatformLoader;
}

namespace teq::platform {

/// Lists the key paths of a document; see `NativeKeyService`.
class ZR_API KeyService {
public:
    using ptree = boost::property_tree::ptree;
    using Loader = teq_platform::PlatformLoader;

    // The order of the virtual functions is part of the ABI: a new one goes after the last.
    virtual ~KeyService() = default;
    virtual std::set<std::string> get(const std::string& file) const = 0;
    virtual std::set<std::string> get(const ptree& tree) const = 0;
    virtual std::set<std::string> get(Loader* loader) const = 0;
    virtual std::string getAsJsonStr(const std::string& file) const = 0;
    virtual std::string getAsJsonStr(Loader* loader) const = 0;
};

}  // namespace teq::platform
