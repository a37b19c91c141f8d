#pragma once
#include <map>
#include <string>
#include <vector>

#include "json/JsonText.h"

/// The texts of a document by their places, as "board.pcie.vendor" or "files[0].name".
using Leaves = std::map<std::string, std::string>;

inline void collect(const json::ptree& tree, const std::string& place, Leaves& leaves) {
    if (tree.empty()) leaves[place] = tree.data();
    std::size_t number = 0;
    for (const auto& [key, child] : tree) {
        const std::string item =
            key.empty() ? "[" + std::to_string(number++) + "]" : (place.empty() ? "" : ".") + key;
        collect(child, place + item, leaves);
    }
}

inline Leaves leavesOf(const std::string& text) {
    json::ptree tree;
    json::parse(text, "test", tree);
    Leaves leaves;
    collect(tree, "", leaves);
    return leaves;
}

struct Loss {
    std::vector<std::string> lost, changed;
};

inline Loss lossBetween(const std::string& before, const std::string& after) {
    const Leaves now = leavesOf(after);
    Loss loss;
    for (const auto& [place, text] : leavesOf(before)) {
        const auto found = now.find(place);
        if (found == now.end())
            loss.lost.push_back(place);
        else if (found->second != text)
            loss.changed.push_back(place);
    }
    return loss;
}
