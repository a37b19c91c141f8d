#include "platform/NativeObjectService.h"

#include "json/JsonText.h"
#include "json/TreePath.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/PlatformLoader.h"
#include "services/DocumentTree.h"
#include "services/TreeWalk.h"
#include "util/HUTFile.h"

namespace teq::platform {

namespace roots = services::roots;
using services::parsed;
using ptree = ObjectService::ptree;

std::string NativeObjectService::getAsJsonStr(const std::string& file) const {
    if (file.ends_with(".zdf")) {
        Loader loader(file, mode_);
        return getAsJsonStr(&loader);
    }
    const bool isHardware = HTEQHardwarePlatform::isValidPlatformExt("." + HUTFile::getExt(file));
    if (!isHardware && !file.ends_with(".spfm")) return {};
    Loader loader(file, mode_);
    const std::string document = getAsJsonStr(&loader);
    return document.empty() ? document : getObjectsByPath(document, isHardware ? roots::kLegacy : "softwarePlatform");
}

std::string NativeObjectService::getAsJsonStr(Loader* loader) const {
    const auto platform = loader ? loader->load() : nullptr;
    return platform ? services::documentText(*platform) : std::string();
}

ptree NativeObjectService::getAsPropertyTree(const std::string& file) const {
    const std::string document = HUTFile::exists(file) ? getAsJsonStr(file) : std::string();
    return document.empty() ? ptree() : parsed(document);
}

ptree NativeObjectService::getAsPropertyTree(Loader* loader) const {
    const std::string document = getAsJsonStr(loader);
    return document.empty() ? ptree() : parsed(document);
}

ptree NativeObjectService::getNodeByPath(const std::string& document, const std::string& path, bool& found) const {
    if (document.empty() || path.empty()) return {};
    found = true;
    const ptree tree = parsed(document);
    const auto at = services::find(&tree, path);
    found = at.node;
    return at.node ? *at.node : ptree();
}

std::string NativeObjectService::getObjectsByPath(const std::string& document, const std::string& path,
                                                  bool& found) const {
    found = true;
    const ptree tree = parsed(document);
    const auto at = services::find(&tree, path);
    found = at.node;
    return at.node ? services::answerOf(*at.node, at.path) : std::string();
}

std::string NativeObjectService::getObjectsByPath(Loader* loader, const std::string& path, bool& found) const {
    if (!loader || path.empty()) return {};
    const std::string document = getAsJsonStr(loader);
    return document.empty() ? document : getObjectsByPath(document, path, found);
}

std::string NativeObjectService::getObjectsByPath(const std::string& document, const std::string& path) const {
    bool found = false;
    return getObjectsByPath(document, path, found);
}

std::string NativeObjectService::getHwPlatformRootPath(const std::string& document) const {
    return getHwPlatformRootPath(parsed(document));
}
std::string NativeObjectService::getHwPlatformRootPath(const ptree& tree) const {
    return _getHwPlatformRootPath(tree, false);
}
std::string NativeObjectService::_getHwPlatformRootPath(const ptree& tree, bool useAlt) const {
    return services::rootOf(tree, useAlt);
}

ptree NativeObjectService::getChild(const ptree& tree, const std::string& path) const {
    const auto child = getChildOptional(tree, path);
    return child ? *child : ptree();
}

boost::optional<const ptree&> NativeObjectService::getChildOptional(const ptree& tree,
                                                                    const std::string& path) const {
    const ptree* const node = pathHasBoostArray(path)
                                  ? json::findPath(tree, getPathWithActualHwPlatformRoot(tree, path))
                                  : services::find(&tree, path).node;
    if (!node) return boost::none;
    return *node;
}

std::string NativeObjectService::getStringValue(const ptree& tree, const std::string& path) const {
    const auto child = getChildOptional(tree, path);
    return child ? child->data() : std::string();
}

bool NativeObjectService::getBoolValue(const ptree& tree, const std::string& path) const {
    const auto child = getChildOptional(tree, path);
    return child && child->get_value<bool>();
}

bool NativeObjectService::getBoolValue(const ptree& tree, const std::string& path, bool missing) const {
    const auto child = getChildOptional(tree, path);
    return child ? child->get_value<bool>(missing) : missing;
}

bool NativeObjectService::hasNodeAtPath(const std::string& document, const std::string& path) const {
    const ptree tree = parsed(document);
    return services::walk(&tree, scanJsonPath(withoutMarkers(path)));
}
bool NativeObjectService::hasNodeAtPath(const ptree& tree, const std::string& path) const {
    return services::hasNode(tree, path);
}

std::string NativeObjectService::getLegacyHwPlatformRootPath() { return roots::kLegacy; }
std::string NativeObjectService::getDefaultHwPlatformRootPath() { return roots::kDefault; }
std::string NativeObjectService::getDefaultRPHwPlatformRootPath() { return roots::kPartition; }
std::string NativeObjectService::getDefaultRPHwPlatformRootPathAlt() { return roots::kPartitionAlt; }

bool NativeObjectService::isLegacyHwPlatformPath(const std::string& path) const { return roots::isLegacy(path); }
std::string NativeObjectService::replaceLegacyHwPlatformPath(const std::string& path,
                                                             const std::string& newRoot) const {
    return roots::replaced(path, newRoot);
}
bool NativeObjectService::hasLegacyHwPlatformRootPath(const std::string& document) const {
    return hasNodeAtPath(document, roots::kLegacy);
}
bool NativeObjectService::hasLegacyHwPlatformRootPath(const ptree& tree) const {
    return hasNodeAtPath(tree, roots::kLegacy);
}
std::string NativeObjectService::getPathWithActualHwPlatformRoot(const std::string& document,
                                                                 const std::string& path) const {
    return roots::isLegacy(path) ? services::actualPath(parsed(document), path) : path;
}
std::string NativeObjectService::getPathWithActualHwPlatformRoot(const ptree& tree, const std::string& path) const {
    return services::actualPath(tree, path, pathHasBoostArray(path));
}
bool NativeObjectService::pathHasBoostArray(const std::string& path) const { return services::hasBoostArray(path); }

}  // namespace teq::platform
