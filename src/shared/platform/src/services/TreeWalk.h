#pragma once
#include <boost/property_tree/ptree.hpp>
#include <span>
#include <string>

#include "platform/PathToken.h"

/// Paths on a tree. Segments are made by `scanJsonPath`; nothing here looks at the text of a path again.
namespace services {

using ptree = boost::property_tree::ptree;
using teq::platform::PathToken;

/// The node that a token selects from `node`, or null.
const ptree* findNode(const ptree& node, const PathToken& token);
const ptree* walk(const ptree& root, std::span<const PathToken> tokens);

/// Whether an object has further keys, or a list items: the first child decides. A node without children is neither.
bool isObject(const ptree& node);

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
/// Whether the path selects a node; "..": by the property tree's own lookup. Legacy paths are not translated.
bool hasNode(const ptree& tree, const std::string& path);
/// The first of the roots that exists, or an empty text. `useAlt`: in the notation of the property tree.
std::string rootOf(const ptree& tree, bool useAlt);
/// The path with a legacy root replaced by the one that exists.
std::string actualPath(const ptree& tree, const std::string& path, bool useAlt);

/// The answer of a node at a path, without markers and with its actual root: a value as it is, an object as JSON, a
/// list as JSON under the path's last segment.
std::string answerOf(const ptree& node, const std::string& path);

/// A node that a path selects in a document, and the path as it was followed.
struct Found {
    const ptree* node = nullptr;
    std::string path;
};
Found find(const ptree& document, const std::string& path);

}  // namespace services
