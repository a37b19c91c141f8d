#pragma once
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "zip/Member.h"

namespace zip {

/// Finds members by name. Names are hashed into buckets and sorted in each, so that names chosen to collide cost n
/// log n, not n squared.
class NameIndex {
public:
    explicit NameIndex(std::span<const Member> members = {});

    const Member* find(std::string_view name) const;
    /// A member with a duplicate name; null if all names differ.
    const Member* duplicate() const;

private:
    std::size_t bucketOf(std::string_view name) const;

    std::span<const Member> members_;
    std::vector<std::uint32_t> starts_;  ///< of each bucket in `order_`, and the end of the last one
    std::vector<std::uint32_t> order_;   ///< numbers of members
};

}  // namespace zip
