#include "platform/NativeDictService.h"

#include "platform/NativeObjectService.h"
#include "services/KeyPattern.h"
#include "services/TextLimit.h"

namespace teq::platform {
namespace {

using ptree = boost::property_tree::ptree;

class Flattening {
public:
    DictService::Dict values;

    void traverse(const ptree& node, const std::string& prefix) {
        const bool isList = !prefix.empty() && !node.empty() && node.front().first.empty();
        std::string working = prefix.empty() || isList ? std::string() : prefix + ".";
        std::size_t position = 0;
        for (const auto& [key, child] : node) {
            // The index follows after the value has been stored: callers rely on these keys.
            limit_.add(child.empty() ? working.size() + key.size() : 0);
            if (child.empty()) values.emplace(working + key, child.data());
            if (isList) working = prefix + "[" + std::to_string(position++) + "]";
            if (!child.empty()) traverse(child, working + key);
        }
    }

private:
    services::TextLimit limit_;
};

}  // namespace

DictService::Dict NativeDictService::getAsDict(const std::string& file, const std::string& path, bool& found) const {
    const NativeObjectService objects;
    if (path.empty()) {
        found = true;
        return getAsDict(objects.getAsPropertyTree(file), path);
    }
    bool isFound = false;
    const std::string document = objects.getAsJsonStr(file);
    if (document.empty()) return {};
    const ptree node = objects.getNodeByPath(document, path, isFound);
    found = isFound;
    return isFound ? getAsDict(node, path) : Dict();
}

DictService::Dict NativeDictService::getAsDict(const ptree& tree, const std::string& prefix) const {
    Flattening flattening;
    flattening.traverse(tree, prefix);
    return std::move(flattening.values);
}

DictService::Dict NativeDictService::getFilteredDict(const std::string& file, const std::string& path) const {
    return getFilteredDict(file, path, defaultIncludeKeys);
}

DictService::Dict NativeDictService::getFilteredDict(const std::string& file, const std::string& path,
                                                     const std::set<std::string>& keys) const {
    bool found = false;
    Dict dict = getAsDict(file, path, found);
    std::erase_if(dict, [&keys](const auto& entry) { return !keys.contains(services::withAnyIndex(entry.first)); });
    return dict;
}

const std::set<std::string> NativeDictService::defaultIncludeKeys{
    "tilHardware.arch",
    "tilHardware.coreRows.num",
    "tilHardware.coreRows.start",
    "tilHardware.shimRows.num",
    "tilHardware.shimRows.start",
    "designIDs.tilngineIDs.nodeID",
    "designIDs.tilngineIDs.puID",
    "designIDs.designID",
    "designIDs.nodeID",
    "designIDs.parentID",
    "reconfigPartitionIDs[*].designID",
    "reconfigPartitionIDs[*].nodeID",
    "reconfigPartitionIDs[*].parentID",
    "static",
    "rm",
    "files[*].name",
    "files[*].type",
    "idCode",
    "extendedIdCode",
};

}  // namespace teq::platform
