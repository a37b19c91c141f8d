#pragma once
#include <string>
#include <string_view>

namespace json {

/// The node at a path as the property tree's own lookup finds it, or null: each part selects the first child of that
/// key, and the path ends where nothing is left of it, so that "a." leads to "a". The tree's own operation asserts that
/// no path ends in a dot; untrusted ones do.
template <class Tree>
Tree* findPath(Tree& tree, std::string_view path) {
    Tree* at = &tree;
    while (!path.empty()) {
        const std::size_t dot = path.find('.');
        const auto child = at->find(std::string(path.substr(0, dot)));
        if (child == at->not_found()) return nullptr;
        at = &child->second;
        path.remove_prefix(dot == std::string_view::npos ? path.size() : dot + 1);
    }
    return at;
}

}  // namespace json
