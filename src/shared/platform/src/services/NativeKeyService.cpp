#include "platform/NativeKeyService.h"

#include "json/JsonText.h"
#include "platform/PlatformLoader.h"
#include "services/DocumentTree.h"
#include "services/KeyListing.h"

namespace teq::platform {

using ptree = KeyService::ptree;

std::set<std::string> NativeKeyService::get(const std::string& file) const {
    Loader loader(file, mode_);
    return get(&loader);
}

std::set<std::string> NativeKeyService::get(const ptree& tree) const {
    return services::keysOf(json::Document(tree).root());
}

std::set<std::string> NativeKeyService::get(Loader* loader) const {
    const auto platform = loader ? loader->load() : nullptr;
    if (!platform) return {};
    json::Document document;
    services::read(*platform, document);
    return services::keysOf(document.root());
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
