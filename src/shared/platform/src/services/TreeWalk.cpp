#include "services/TreeWalk.h"

#include <iterator>

#include "json/JsonText.h"
#include "json/TreePath.h"

namespace services {

using teq::platform::scanJsonPath;
using teq::platform::withoutMarkers;

const ptree* childOf(const ptree* node, const std::string& name) {
    const auto child = node->find(name);
    return child != node->not_found() ? &child->second : nullptr;
}

json::Node childOf(const json::Node& node, const std::string& name) { return node.find(name); }

const ptree* itemOf(const ptree* node, std::uint64_t index) {
    return index < node->size() ? &std::next(node->begin(), static_cast<std::ptrdiff_t>(index))->second : nullptr;
}

json::Node itemOf(const json::Node& node, std::uint64_t index) {
    for (const json::Node item : node)
        if (index-- == 0) return item;
    return {};
}

std::vector<const ptree*> itemsOf(const ptree* node) {
    std::vector<const ptree*> items;
    for (const auto& [key, item] : *node) items.push_back(&item);
    return items;
}

std::vector<json::Node> itemsOf(const json::Node& node) { return {node.begin(), node.end()}; }

bool isObject(const ptree& node) { return !node.empty() && !node.front().first.empty(); }

bool isObject(const json::Node& node) { return !node.empty() && !(*node.begin()).name().empty(); }

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
    return walk(&tree, scanJsonPath(withoutMarkers(path)));
}

std::string answerOf(const ptree& node, const std::string& path) {
    if (node.empty()) return node.data();
    if (isObject(node)) return json::write(node);
    const auto dot = path.rfind('.');
    return json::writeMember(dot == std::string::npos ? std::string() : path.substr(dot + 1), node);
}

std::string answerOf(const json::Node& node, const std::string& path) {
    if (node.empty()) return node.data();
    ptree tree;
    json::copy(node, tree);
    return answerOf(tree, path);
}

}  // namespace services
