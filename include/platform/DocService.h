#pragma once
#include <boost/property_tree/ptree.hpp>
#include <string>

#include "text/ZrApi.h"

namespace teq::platform {

/// The documentation of the keys; see `NativeDocService`.
class ZR_API DocService {
public:
    using ptree = boost::property_tree::ptree;

    // The order of the virtual functions is part of the ABI: a new one goes after the last.
    virtual ~DocService() = default;
    virtual ptree getDocKeyBranch(const ptree& tree, const std::string& key) const = 0;
    virtual ptree getBranch(const ptree& tree, const std::string& key, bool& found) const = 0;
    virtual std::string getFromFile(ptree& tree) const = 0;
    virtual std::string getAsJsonStr(const ptree& tree) const = 0;
    virtual bool isValidDocKey(ptree& tree, const std::string& key) const = 0;
};

}  // namespace teq::platform
