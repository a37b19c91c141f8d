#include "zip/NameIndex.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>

namespace zip {

NameIndex::NameIndex(std::span<const Member> members) : members_(members) {
    starts_.resize(std::bit_ceil(members.size() + 1) + 1);
    order_.resize(members.size());
    std::vector<std::uint32_t> buckets(members.size());
    for (std::size_t i = 0; i < members.size(); ++i)
        ++starts_[buckets[i] = static_cast<std::uint32_t>(bucketOf(members[i].name))];
    std::inclusive_scan(starts_.begin(), starts_.end(), starts_.begin());
    for (std::size_t i = members.size(); i-- > 0;) order_[--starts_[buckets[i]]] = static_cast<std::uint32_t>(i);
    for (std::size_t b = 0; b + 1 < starts_.size(); ++b)
        if (starts_[b + 1] - starts_[b] > 1)
            std::sort(order_.begin() + starts_[b], order_.begin() + starts_[b + 1],
                      [this](auto x, auto y) { return members_[x].name < members_[y].name; });
}

std::size_t NameIndex::bucketOf(std::string_view name) const {
    return std::hash<std::string_view>()(name) & (starts_.size() - 2);
}

const Member* NameIndex::find(std::string_view name) const {
    const std::size_t bucket = bucketOf(name);
    const auto end = order_.begin() + starts_[bucket + 1];
    const auto at = std::lower_bound(order_.begin() + starts_[bucket], end, name,
                                     [this](auto number, auto wanted) { return members_[number].name < wanted; });
    return at != end && members_[*at].name == name ? &members_[*at] : nullptr;
}

const Member* NameIndex::duplicate() const {
    const auto same = [this](auto x, auto y) { return members_[x].name == members_[y].name; };
    const auto at = std::adjacent_find(order_.begin(), order_.end(), same);
    return at == order_.end() ? nullptr : &members_[*at];
}

}  // namespace zip
