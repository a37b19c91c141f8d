#pragma once
#include <boost/property_tree/ptree.hpp>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "json/JsonNode.h"
#include "platform/PathToken.h"

/// Paths on a tree. Segments are made by `scanJsonPath`; nothing here looks at the text of a path again.
namespace services {

using ptree = boost::property_tree::ptree;
using teq::platform::PathToken;

// A node is a pointer to one of a tree, or a `json::Node`; null or false if it is missing.
const ptree* childOf(const ptree* node, const std::string& name);
json::Node childOf(const json::Node& node, const std::string& name);
const ptree* itemOf(const ptree* node, std::uint64_t index);
json::Node itemOf(const json::Node& node, std::uint64_t index);

/// The children of a node, in order.
std::vector<const ptree*> itemsOf(const ptree* node);
std::vector<json::Node> itemsOf(const json::Node& node);

/// A node of a document whose lists are walked once: thousands of paths may ask for an item at the end of a long one.
template <class Node>
struct Indexed {
    Node node;
    std::map<Node, std::vector<Node>>* lists;
    explicit operator bool() const { return static_cast<bool>(node); }
};
template <class Node>
Indexed<Node> childOf(const Indexed<Node>& from, const std::string& name) {
    return {childOf(from.node, name), from.lists};
}
template <class Node>
Indexed<Node> itemOf(const Indexed<Node>& from, std::uint64_t index) {
    const auto [list, isNew] = from.lists->try_emplace(from.node);
    if (isNew) list->second = itemsOf(from.node);
    return {index < list->second.size() ? list->second[index] : Node(), from.lists};
}

/// The node that a token selects from `node`.
template <class Node>
Node findNode(const Node& node, const PathToken& token) {
    const Node found = token.name.empty() ? node : childOf(node, token.name);
    return found && token.hasIndex ? itemOf(found, static_cast<std::uint64_t>(std::int64_t{token.index})) : found;
}
template <class Node>
Node walk(const Node& root, std::span<const PathToken> tokens) {
    Node node = root;
    for (const PathToken& token : tokens) {
        node = findNode(node, token);
        if (!node) break;
    }
    return node;
}

/// Whether an object has further keys, or a list items: the first child decides. A node without children is neither.
bool isObject(const ptree& node);
bool isObject(const json::Node& node);

/// Where the hardware platform is in a document: paths written for the oldest layout work on any.
namespace roots {
inline constexpr char kLegacy[] = "hardwarePlatform";
inline constexpr char kDefault[] = "hardwarePlatforms.hardwarePlatform";
inline constexpr char kPartition[] = "hardwarePlatforms.reconfigurablePartitions[0].hardwarePlatform";
/// The same node in the notation of the property tree.
inline constexpr char kPartitionAlt[] = "hardwarePlatforms.reconfigurablePartitions..hardwarePlatform";

bool isLegacy(const std::string& path);
/// A legacy path with `root` in the place of its first segment; any other path as it is.
std::string replaced(const std::string& path, const std::string& root);
}  // namespace roots

/// Whether the path has "..", the property tree's notation for the first item of a list.
bool hasBoostArray(const std::string& path);
/// Whether the path selects a node; "..", in a tree only: by the property tree's own lookup. Legacy paths are not
/// translated.
bool hasNode(const ptree& tree, const std::string& path);
template <class Node>
bool hasNode(const Node& document, std::string_view path) {
    return static_cast<bool>(walk(document, teq::platform::scanJsonPath(path)));
}
/// The first of the roots that exists, or an empty text. `useAlt`: in the notation of the property tree.
template <class Document>
std::string rootOf(const Document& document, bool useAlt) {
    for (const char* root : {roots::kLegacy, roots::kDefault, useAlt ? roots::kPartitionAlt : roots::kPartition})
        if (hasNode(document, root)) return root;
    return {};
}
/// The path with a legacy root replaced by the one that exists.
template <class Document>
std::string actualPath(const Document& document, const std::string& path, bool useAlt = false) {
    const std::string root = roots::isLegacy(path) ? rootOf(document, useAlt) : "";
    return root.empty() ? path : roots::replaced(path, root);
}

/// The answer of a node at a path, without markers and with its actual root: a value as it is, an object as JSON, a
/// list as JSON under the path's last segment.
std::string answerOf(const ptree& node, const std::string& path);
std::string answerOf(const json::Node& node, const std::string& path);

/// A node that a path selects in a document, and the path as it was followed.
template <class Node>
struct Found {
    Node node;
    std::string path;
};
template <class Node>
Found<Node> find(const Node& document, const std::string& path) {
    std::string actual = actualPath(document, teq::platform::withoutMarkers(path));
    const Node node = walk(document, teq::platform::scanJsonPath(actual));
    return {node, std::move(actual)};
}

}  // namespace services
