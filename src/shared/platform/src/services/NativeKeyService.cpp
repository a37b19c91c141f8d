#include "platform/NativeKeyService.h"

#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "json/JsonText.h"
#include "platform/PlatformLoader.h"
#include "services/DocumentTree.h"
#include "services/TextLimit.h"

namespace teq::platform {
namespace {

using ptree = KeyService::ptree;

class Listing {
public:
    std::set<std::string> keys;

    /// The keys below nodes of one path: long paths of many nodes are made and compared once.
    void traverse(const std::vector<const ptree*>& nodes, const std::string& path) {
        std::map<std::pair<bool, std::string_view>, std::vector<const ptree*>> children;
        for (const ptree* node : nodes) {
            const bool isList = !node->empty() && node->front().first.empty();
            for (const auto& [key, child] : *node) children[{isList, key}].push_back(&child);
        }
        for (const auto& [name, below] : children) {
            const char* const separator = path.empty() ? "" : name.first ? "[]" : ".";
            limit_.add(path.size() + name.second.size());
            std::string key = path + separator + std::string(name.second);
            keys.insert(key);
            traverse(below, key);
        }
    }

private:
    services::TextLimit limit_;
};

}  // namespace

std::set<std::string> NativeKeyService::get(const std::string& file) const {
    Loader loader(file, mode_);
    return get(&loader);
}

std::set<std::string> NativeKeyService::get(const ptree& tree) const {
    Listing listing;
    listing.traverse({&tree}, "");
    return std::move(listing.keys);
}

std::set<std::string> NativeKeyService::get(Loader* loader) const {
    const auto platform = loader ? loader->load() : nullptr;
    return platform ? get(services::documentTree(*platform)) : std::set<std::string>();
}

std::string NativeKeyService::getAsJsonStr(const std::string& file) const {
    Loader loader(file, mode_);
    return getAsJsonStr(&loader);
}

std::string NativeKeyService::getAsJsonStr(Loader* loader) const {
    ptree document;
    ptree& list = document.push_back({"keys", ptree()})->second;
    for (const std::string& key : get(loader)) list.push_back({std::string(), ptree()})->second.data() = key;
    return json::write(document);
}

}  // namespace teq::platform
