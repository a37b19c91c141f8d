#pragma once
#include <boost/property_tree/ptree.hpp>
#include <set>
#include <string>

#include "platform/DictService.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq::platform {

/// Flattens a branch of a document into a map from key path to value.
///
/// A list of objects gives "a[0].x", "a[1].x" and so on. The keys of a list of plain values are one index late: its
/// first value is at the empty key, the second at "a[0]", the third at "a[1]". Files written from the dictionary have that form, so
/// it stays. Of values with the same key the first counts. Whatever a loader or the JSON parser throws passes; more than
/// 16 MiB of keys throw `HEXDataException`.
class ZR_API NativeDictService : public DictService {
public:
    /// Without a path, the document of the file as `NativeObjectService::getAsPropertyTree` gives it, and `found` is
    /// true even if there is none. With one, the node at that path, which is also the prefix of the keys; empty if there
    /// is no node.
    Dict getAsDict(const std::string& file, const std::string& path, bool& found) const override;
    /// The tree with `prefix` before its keys.
    Dict getAsDict(const boost::property_tree::ptree& tree, const std::string& prefix) const;
    /// The entries whose key is in `defaultIncludeKeys`.
    Dict getFilteredDict(const std::string& file, const std::string& path) const override;
    /// The entries whose key is in `keys` after everything from its first "[" to its last "]" has been replaced by
    /// "[*]"; they keep their own keys.
    Dict getFilteredDict(const std::string& file, const std::string& path,
                         const std::set<std::string>& keys) const override;

    /// The keys of the tile array, the ids and the files.
    static const std::set<std::string> defaultIncludeKeys;
};

}  // namespace teq::platform
