#pragma once
#include <boost/optional.hpp>
#include <boost/property_tree/ptree.hpp>
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {
class PlatformLoader;
}

namespace teq::platform {

/// Questions about the document of a platform, put as paths; see `NativeObjectService`.
class ZR_API ObjectService {
public:
    using ptree = boost::property_tree::ptree;
    using Loader = teq_platform::PlatformLoader;

    // The order of the virtual functions is part of the ABI: a new one goes after the last.
    virtual ~ObjectService() = default;
    virtual std::string getAsJsonStr(const std::string& file) const = 0;
    virtual std::string getAsJsonStr(Loader* loader) const = 0;
    virtual ptree getAsPropertyTree(const std::string& file) const = 0;
    virtual ptree getAsPropertyTree(Loader* loader) const = 0;
    virtual ptree getNodeByPath(const std::string& document, const std::string& path, bool& found) const = 0;
    virtual std::string getObjectsByPath(const std::string& document, const std::string& path, bool& found) const = 0;
    virtual std::string getObjectsByPath(Loader* loader, const std::string& path, bool& found) const = 0;
    virtual std::string getHwPlatformRootPath(const std::string& document) const = 0;
    virtual std::string getHwPlatformRootPath(const ptree& tree) const = 0;
    virtual ptree getChild(const ptree& tree, const std::string& path) const = 0;
    virtual boost::optional<const ptree&> getChildOptional(const ptree& tree, const std::string& path) const = 0;
    virtual std::string getStringValue(const ptree& tree, const std::string& path) const = 0;
    virtual bool getBoolValue(const ptree& tree, const std::string& path) const = 0;
    virtual bool getBoolValue(const ptree& tree, const std::string& path, bool missing) const = 0;
    virtual std::string getObjectsByPath(const std::string& document, const std::string& path) const = 0;
};

}  // namespace teq::platform
