#include "json/ValueStream.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "json/NodeStore.h"

namespace json {

namespace {

struct Sizes {
    std::uint32_t key, text;
};

}  // namespace

void ValueStream::add(Kind kind, std::string_view key, std::string_view text) {
    if (!fits(key) || !fits(text)) throw std::length_error("a text of 4 GiB or more in a document");
    const Sizes sizes{static_cast<std::uint32_t>(key.size()), static_cast<std::uint32_t>(text.size())};
    char* out = bytes_.extend(1 + sizeof sizes + key.size() + text.size());
    *out++ = static_cast<char>(kind);
    std::memcpy(out, &sizes, sizeof sizes);
    out = std::copy(key.begin(), key.end(), out + sizeof sizes);
    std::copy(text.begin(), text.end(), out);
}

void ValueStream::addTree(std::string_view key, const ptree& tree) {
    struct Level {
        ptree::const_iterator next, end;
    };
    std::vector<Level> open;
    const std::size_t before = size();
    const auto begin = [&](std::string_view name, const ptree& node) {
        add(isList(node) ? Kind::list : Kind::object, name, node.data());
        open.push_back({node.begin(), node.end()});
    };
    try {
        begin(key, tree);
        while (!open.empty()) {
            if (open.back().next == open.back().end) {
                addEnd();
                open.pop_back();
                continue;
            }
            const auto& [name, child] = *open.back().next++;
            if (child.empty())
                add(Kind::value, name, child.data());
            else
                begin(name, child);
        }
    } catch (...) {
        cut(before);
        throw;
    }
}

void ValueStream::addItemsBelow(std::string_view key, std::string_view items) {
    const std::size_t before = size();
    std::string_view rest = items;
    try {
        add(takeItem(rest).key.empty() ? Kind::list : Kind::object, key);
        addItems(items);
        addEnd();
    } catch (...) {
        cut(before);
        throw;
    }
}

std::uint32_t ValueStream::markOf(std::string_view key) {
    const auto byte = [&](std::size_t at) -> std::uint32_t { return static_cast<unsigned char>(key[at]); };
    if (key.empty()) return 0;
    return static_cast<std::uint32_t>(key.size()) << 24 | byte(0) << 16 | byte(key.size() / 2) << 8 |
           byte(key.size() - 1);
}

std::string_view ValueStream::keyAt(std::size_t item) const {
    std::string_view rest = items(item, size());
    return takeItem(rest).key;
}

ValueStream::Item takeItem(std::string_view& items) {
    ValueStream::Item item{static_cast<ValueStream::Kind>(items.front()), {}, {}};
    items.remove_prefix(1);
    if (item.kind == ValueStream::Kind::end) return item;
    Sizes sizes;
    std::memcpy(&sizes, items.data(), sizeof sizes);
    item.key = items.substr(sizeof sizes, sizes.key);
    item.text = items.substr(sizeof sizes + sizes.key, sizes.text);
    items.remove_prefix(sizeof sizes + sizes.key + sizes.text);
    return item;
}

void addTo(ptree& tree, std::string_view items) {
    NodeStore store;
    std::vector<ptree*> open{&tree};
    while (!items.empty()) {
        const auto [kind, key, text] = takeItem(items);
        if (kind == ValueStream::Kind::end) {
            open.pop_back();
            continue;
        }
        ptree& made = open.back()->push_back(store.of(key))->second;
        made.data() = text;
        if (kind != ValueStream::Kind::value) open.push_back(&made);
    }
}

bool isList(const ptree& node) {
    return std::all_of(node.begin(), node.end(), [](const ptree::value_type& child) { return child.first.empty(); });
}

}  // namespace json
