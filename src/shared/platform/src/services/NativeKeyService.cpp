#include "platform/NativeKeyService.h"

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

    void traverse(const ptree& node, std::string prefix) {
        if (!prefix.empty()) prefix += !node.empty() && node.front().first.empty() ? "[]" : ".";
        for (const auto& [key, child] : node) {
            std::string path = prefix + key;
            const auto [at, isNew] = keys.insert(path);
            if (isNew) limit_.add(path.size());
            traverse(child, std::move(path));
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
    listing.traverse(tree, "");
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
