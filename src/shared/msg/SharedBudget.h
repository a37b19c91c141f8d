#pragma once
#include <array>
#include <cstdint>
#include <set>
#include <utility>

#include "msg/Budget.h"

/// What the requests of one call share, if it makes one for each of many files: together they may cost as much as one
/// request, and more for each byte of the files that they open. Many small files thus cannot take long, and none that
/// costs what its size explains is refused for others. The outermost one on a thread counts.
class SharedBudget {
public:
    SharedBudget();
    ~SharedBudget();
    SharedBudget(const SharedBudget&) = delete;
    SharedBudget& operator=(const SharedBudget&) = delete;

    /// For each file that a request opens; further times, a file does not count.
    static void addFile(std::uint64_t device, std::uint64_t inode, std::uint64_t size);

private:
    friend class Budget;
    /// False, and nothing is taken, if there is less.
    bool take_(const Budget::Amounts& amounts, bool isSecond);

    std::array<Budget::Amounts, 2> left_ = {};  ///< for the requests, and for their second readings (`OwnBudget`)
    std::set<std::pair<std::uint64_t, std::uint64_t>> files_;
    bool isOutermost_;
};
