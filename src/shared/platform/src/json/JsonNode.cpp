#include "json/JsonNode.h"

#include "json/NodeStore.h"

namespace json {

Node Node::find(std::string_view name) const {
    if (!document_) return {};
    const auto& entries = document_->entries_;
    for (std::uint32_t at = index_ + 1; at < entries[index_].end; at = entries[at].end)
        if (entries[at].name.size == name.size() && document_->view(entries[at].name) == name) return {document_, at};
    return {};
}

Document::Document(const ptree& tree) {
    struct Level {
        std::uint32_t index;
        ptree::const_iterator next, end;
    };
    std::vector<Level> open{{0, tree.begin(), tree.end()}};
    entries_[0].text = add(tree.data());
    while (!open.empty()) {
        Level& level = open.back();
        if (level.next == level.end) {
            entries_[level.index].end = static_cast<std::uint32_t>(entries_.size());
            open.pop_back();
            continue;
        }
        const auto& [name, child] = *level.next++;
        const auto index = static_cast<std::uint32_t>(entries_.size());
        entries_.push_back({add(name), add(child.data()), index + 1});
        if (!child.empty()) open.push_back({index, child.begin(), child.end()});
    }
}

void copy(const Node& node, ptree& tree) {
    struct Level {
        ptree* into;
        Node::Iterator next, end;
    };
    NodeStore store;
    ptree whole;
    std::vector<Level> open{{&whole, node.begin(), node.end()}};
    whole.data() = node.text();
    while (!open.empty()) {
        Level& level = open.back();
        if (!(level.next != level.end)) {
            open.pop_back();
            continue;
        }
        const Node child = *level.next;
        ++level.next;
        ptree& made = level.into->push_back(store.of(child.name()))->second;
        if (child.empty())
            made.data() = child.text();
        else
            open.push_back({&made, child.begin(), child.end()});
    }
    tree.swap(whole);
}

}  // namespace json
