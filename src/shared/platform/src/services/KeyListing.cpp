#include "services/KeyListing.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "services/TextLimit.h"

namespace services {
namespace {

using json::Node;

class Listing {
public:
    std::set<std::string> keys;

    /// The keys below nodes of one path: long paths of many nodes are made and compared once.
    void traverse(std::span<const Node> nodes, const std::string& path) {
        std::vector<Child> children;
        for (const Node& node : nodes)
            for (const Node child : node) children.push_back({(*node.begin()).name().empty(), child.name(), child});
        std::ranges::stable_sort(children, {}, &Child::identity);
        std::vector<Node> below;
        for (auto child = children.begin(); child != children.end();) {
            const auto identity = child->identity();
            below.clear();
            for (; child != children.end() && child->identity() == identity; ++child) below.push_back(child->node);
            const auto& [isItem, name] = identity;
            const char* const separator = path.empty() ? "" : isItem ? "[]" : ".";
            limit_.add(path.size() + name.size());
            traverse(below, *keys.emplace_hint(keys.end(), path + separator + std::string(name)));
        }
    }

private:
    struct Child {
        bool isItem;
        std::string_view name;
        Node node;
        std::pair<bool, std::string_view> identity() const { return {isItem, name}; }
    };

    TextLimit limit_;
};

}  // namespace

std::set<std::string> keysOf(const Node& document) {
    Listing listing;
    listing.traverse({&document, 1}, "");
    return std::move(listing.keys);
}

}  // namespace services
