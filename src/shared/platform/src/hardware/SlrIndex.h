#pragma once
#include <map>
#include <set>
#include <string>
#include <unordered_map>

#include "text/HSTStringUtils.h"

namespace hardware {

/// The SLR names of each pblock, found by the pblock's name in any letter case. Of several names that differ
/// only in case, the last one in key order is used. The map must outlive it.
class SlrIndex {
public:
    explicit SlrIndex(const std::map<std::string, std::set<std::string>>& names) {
        for (const auto& [pblock, slrs] : names) byLowerName_[HSTStringUtils::toLower(pblock)] = &slrs;
    }
    /// Null for a pblock without names.
    const std::set<std::string>* find(const std::string& pblock) const {
        const auto at = byLowerName_.find(HSTStringUtils::toLower(pblock));
        return at != byLowerName_.end() ? at->second : nullptr;
    }

private:
    std::unordered_map<std::string, const std::set<std::string>*> byLowerName_;
};

}  // namespace hardware
