#include "services/TreeWalk.h"

#include <iterator>

#include "json/JsonText.h"
#include "json/TreePath.h"

namespace services {

using teq::platform::scanJsonPath;
using teq::platform::withoutMarkers;

const ptree* findNode(const ptree& node, const PathToken& token) {
    const ptree* found = &node;
    if (!token.name.empty()) {
        const auto child = node.find(token.name);
        if (child == node.not_found()) return nullptr;
        found = &child->second;
    }
    if (!token.hasIndex) return found;
    const auto index = static_cast<std::uint64_t>(std::int64_t{token.index});
    return index < found->size() ? &std::next(found->begin(), token.index)->second : nullptr;
}

const ptree* walk(const ptree& root, std::span<const PathToken> tokens) {
    const ptree* node = &root;
    for (const PathToken& token : tokens)
        if (node = findNode(*node, token); !node) return nullptr;
    return node;
}

bool isObject(const ptree& node) { return !node.empty() && !node.front().first.empty(); }

bool roots::isLegacy(const std::string& path) {
    constexpr std::string_view kRoot = kLegacy;
    return path.starts_with(kRoot) && (path.size() == kRoot.size() || path[kRoot.size()] == '.');
}

std::string roots::replaced(const std::string& path, const std::string& root) {
    return isLegacy(path) ? root + path.substr(std::size(kLegacy) - 1) : path;
}

bool hasBoostArray(const std::string& path) { return path.find("..") != std::string::npos; }

bool hasNode(const ptree& tree, const std::string& path) {
    if (hasBoostArray(path)) return json::findPath(tree, path);
    return walk(tree, scanJsonPath(withoutMarkers(path)));
}

std::string rootOf(const ptree& tree, bool useAlt) {
    for (const char* root : {roots::kLegacy, roots::kDefault, useAlt ? roots::kPartitionAlt : roots::kPartition})
        if (hasNode(tree, root)) return root;
    return {};
}

std::string actualPath(const ptree& tree, const std::string& path, bool useAlt) {
    if (!roots::isLegacy(path)) return path;
    const std::string root = rootOf(tree, useAlt);
    return root.empty() ? path : roots::replaced(path, root);
}

std::string answerOf(const ptree& node, const std::string& path) {
    if (node.empty()) return node.data();
    if (isObject(node)) return json::write(node);
    const auto dot = path.rfind('.');
    return json::writeMember(dot == std::string::npos ? std::string() : path.substr(dot + 1), node);
}

Found find(const ptree& document, const std::string& path) {
    Found found{nullptr, actualPath(document, withoutMarkers(path), false)};
    found.node = walk(document, scanJsonPath(found.path));
    return found;
}

}  // namespace services
