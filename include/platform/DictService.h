#pragma once
#include <map>
#include <set>
#include <string>

#include "text/ZrApi.h"

namespace teq::platform {

/// Flattens a branch of a document into a map; see `NativeDictService`.
class ZR_API DictService {
public:
    using Dict = std::map<std::string, std::string>;

    // The order of the virtual functions is part of the ABI: a new one goes after the last.
    virtual ~DictService() = default;
    virtual Dict getAsDict(const std::string& file, const std::string& path, bool& found) const = 0;
    virtual Dict getFilteredDict(const std::string& file, const std::string& path) const = 0;
    virtual Dict getFilteredDict(const std::string& file, const std::string& path,
                                 const std::set<std::string>& keys) const = 0;
};

}  // namespace teq::platform
