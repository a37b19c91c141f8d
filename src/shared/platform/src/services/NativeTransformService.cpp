#include "platform/NativeTransformService.h"

#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "platform/NativeObjectService.h"
#include "util/WholeFile.h"

namespace teq::platform {

std::string NativeTransformService::getAsJsonStr(const std::string& file) const {
    return NativeObjectService().getAsJsonStr(file);
}
std::string NativeTransformService::getAsJsonStr(Loader* loader) const {
    return NativeObjectService().getAsJsonStr(loader);
}

std::string NativeTransformService::getTransformSpecAsJsonStr(const std::string& specification) const {
    if (!specification.ends_with(".json")) return {};
    try {
        constexpr std::size_t kMaxBytes = 64 << 20;
        return wholefile::read(specification, kMaxBytes);
    } catch (const HEXUserException&) {
        return {};
    }
}

std::int32_t NativeTransformService::getObjectsBySpec(const std::string&, const std::string& specification) const {
    const std::string text = getTransformSpecAsJsonStr(specification);
    if (text.empty()) return 0;
    constexpr json::Limits kLimits{.nodes = 2'000'000};  // a million entries with a value each
    json::ptree tree;
    json::parse(text, specification, tree, kLimits);
    return static_cast<std::int32_t>(tree.get_child("spec").size());
}

std::string NativeTransformService::getObjectsBySpec(Loader*, const std::string& specification) const {
    return getTransformSpecAsJsonStr(specification);
}

}  // namespace teq::platform
