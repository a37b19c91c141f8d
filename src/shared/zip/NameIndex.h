#pragma once
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "zip/Member.h"

namespace zip {

/// Finds members by name. Names are spread over buckets, and sorted in each: names that were chosen to meet in one
/// bucket cost a sort, not a square.
class NameIndex {
public:
    explicit NameIndex(std::span<const Member> members = {});

    const Member* find(std::string_view name) const;
    /// A member whose name another one has too; null when all differ.
    const Member* duplicate() const;

private:
    std::size_t bucketOf(std::string_view name) const;

    std::span<const Member> members_;
    std::vector<std::uint32_t> starts_;  ///< of each bucket in `order_`, and the end of the last one
    std::vector<std::uint32_t> order_;   ///< numbers of members
};

}  // namespace zip
