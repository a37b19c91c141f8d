#pragma once
#include <cstdint>

namespace zip {

/// How much one call may decompress, for all members and nested archives together.
class OutputBudget {
public:
    static constexpr std::uint64_t kOfCall = 1024UL * 1024 * 1024;

    explicit OutputBudget(std::uint64_t bytes = kOfCall) : left_(bytes) {}
    /// Takes nothing and returns false if less is left.
    bool spend(std::uint64_t bytes) {
        if (bytes > left_) return false;
        left_ -= bytes;
        return true;
    }
    std::uint64_t left() const { return left_; }

private:
    std::uint64_t left_;
};

}  // namespace zip
