#pragma once
#include <boost/property_tree/ptree.hpp>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace json {

/// Empty nodes with their keys, to be copied into trees: the tree type cannot be moved, so a pair built
/// outside the tree would be copied.
class NodeStore {
public:
    using ptree = boost::property_tree::ptree;

    /// The empty node with this key; valid until the next call.
    const ptree::value_type& of(std::string_view key) {
        if (key.empty()) return item_;
        Node& kept = kept_[std::hash<std::string_view>()(key) % kept_.size()];
        if (!kept || kept->first != key) kept = std::make_unique<const ptree::value_type>(std::string(key), ptree());
        return *kept;
    }

private:
    using Node = std::unique_ptr<const ptree::value_type>;
    /// Each key has one place, which the next key with the same remainder takes over: untrusted keys whose hash values
    /// are all the same are never searched. Documents of objects have some hundreds of keys.
    std::vector<Node> kept_ = std::vector<Node>(4096);
    const ptree::value_type item_{std::string(), ptree()};
};

}  // namespace json
