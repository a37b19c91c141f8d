#pragma once
#include <boost/property_tree/ptree.hpp>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace json {

/// Empty nodes with their keys, to be copied into trees: the tree type cannot be moved, so a pair built
/// outside the tree would be copied.
class NodeStore {
public:
    using ptree = boost::property_tree::ptree;

    /// The empty node with this key; valid until the next call.
    const ptree::value_type& of(std::string_view key) {
        if (key.empty()) return item_;
        const auto at = known_.find(key);
        if (at != known_.end()) return *at->second;
        auto node = std::make_unique<const ptree::value_type>(std::string(key), ptree());
        auto& kept = known_.size() < kMaxKeys ? known_[std::string(key)] : spare_;
        kept = std::move(node);
        return *kept;
    }

private:
    /// Keys that are kept: documents of objects have some hundreds, documents with names as keys any number.
    static constexpr std::size_t kMaxKeys = 2000;
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    using Node = std::unique_ptr<const ptree::value_type>;
    std::unordered_map<std::string, Node, Hash, std::equal_to<>> known_;
    Node spare_;
    const ptree::value_type item_{std::string(), ptree()};
};

}  // namespace json
