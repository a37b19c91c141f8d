#include "msg/Budget.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "msg/HEXFileFault.h"
#include "msg/OwnBudget.h"
#include "msg/SharedBudget.h"

namespace {

struct Limit {
    std::uint64_t most;
    std::uint64_t shared;  ///< for two bytes of the files, if requests share a budget; 0: not shared
    const char* refusal;
    std::uint64_t mostShared = most;  ///< of requests that share a budget, without their files
};
/// In the order of `Cost`.
constexpr std::array kLimits{
    Limit{64U << 20, 64, "the request reads more than 64 MiB of metadata"},
    Limit{500'000, 1, "the request reads more than 500000 values"},
    Limit{16U << 20, 64, "the request reads more than 16 MiB of keys and texts"},
    Limit{64U << 20, 64, "the objects of the platform take more than 64 MiB"},
    Limit{500'000, 1, "the document has more than 500000 values"},
    Limit{32U << 20, 64, "the document has more than 32 MiB"},
    Limit{10'000, 0, "the request makes more than 10000 files and directories"},
    Limit{2'000'000, 64, "the request looks up more than 2000000 names to follow links"},
    Limit{1ULL << 62, 200, "the request decompresses too much", 256U << 20},
};
static_assert(kLimits.size() == static_cast<std::size_t>(Cost::count_), "one row for each cost");

constexpr const char* kSharedRefusal = "it and the files before it cost more than their size allows";

constexpr int kReportsOfKind = 100;
constexpr std::size_t kKindsOfReport = 1000;

thread_local Budget* current = nullptr;
thread_local SharedBudget* shared = nullptr;

}  // namespace

Budget::Budget() : isOutermost_(!current) {
    if (isOutermost_) current = this;
}

Budget::~Budget() {
    if (isOutermost_) current = nullptr;
}

OwnBudget::OwnBudget() : outer_(std::exchange(current, nullptr)) {
    std::unique_ptr<Budget>& budget = outer_ ? outer_->second_ : own_;
    if (!budget) budget = std::make_unique<Budget>();
    budget->isSecond_ = true;
    current = budget.get();
}

OwnBudget::~OwnBudget() {
    own_.reset();
    current = outer_;
}

SharedBudget::SharedBudget() : isOutermost_(!shared) {
    for (Budget::Amounts& left : left_)
        for (std::size_t row = 0; row < left.size(); ++row) left[row] = kLimits[row].mostShared;
    if (isOutermost_) shared = this;
}

SharedBudget::~SharedBudget() {
    if (isOutermost_) shared = nullptr;
}

void SharedBudget::addFile(std::uint64_t device, std::uint64_t inode, std::uint64_t size) {
    constexpr std::uint64_t kMaxSize = 1ULL << 40;  // a larger file allows no more, so that sums of sizes fit
    if (!shared || !shared->files_.emplace(device, inode).second) return;
    for (Budget::Amounts& left : shared->left_)
        for (std::size_t row = 0; row < left.size(); ++row)
            left[row] += std::min(size, kMaxSize) / 2 * kLimits[row].shared;
}

bool SharedBudget::take_(const Budget::Amounts& amounts, bool isSecond) {
    Budget::Amounts& left = left_[isSecond];
    for (std::size_t row = 0; row < left.size(); ++row)
        if (kLimits[row].shared > 0 && amounts[row] > left[row]) return false;
    for (std::size_t row = 0; row < left.size(); ++row)
        if (kLimits[row].shared > 0) left[row] -= amounts[row];
    return true;
}

const char* Budget::refusal(Cost cost, std::uint64_t amount) {
    if (!current) return nullptr;
    const auto row = static_cast<std::size_t>(cost);
    std::uint64_t& spent = current->spent_[row];
    const bool isWithin = amount <= kLimits[row].most - spent;
    Amounts amounts = {};
    amounts[row] = amount;
    if (isWithin && (!shared || shared->take_(amounts, current->isSecond_))) {
        spent += amount;
        return nullptr;
    }
    spent = kLimits[row].most;
    const char* const why = isWithin ? kSharedRefusal : kLimits[row].refusal;
    if (!current->refused_) current->refused_ = why;
    return why;
}

Budget::Amounts Budget::spent() { return current ? current->spent_ : Amounts(); }

const char* Budget::refusalOfRepeating(const Amounts& since, std::uint64_t times) {
    if (!current) return nullptr;
    Amounts& spent = current->spent_;
    Amounts repeated = {};
    for (std::size_t row = 0; row < spent.size(); ++row) {
        const std::uint64_t once = spent[row] - since[row];
        if (once > 0 && times > (kLimits[row].most - spent[row]) / once) return kLimits[row].refusal;
        repeated[row] = once * times;
    }
    if (shared && !shared->take_(repeated, current->isSecond_)) return kSharedRefusal;
    for (std::size_t row = 0; row < spent.size(); ++row) spent[row] += repeated[row];
    return nullptr;
}

void Budget::spend(Cost cost, std::uint64_t amount) {
    if (const char* const why = refusal(cost, amount)) throw HEXFileFault({.text = why});
}

void Budget::expectKept(const std::string& file) {
    if (current && current->refused_) throw HEXFileFault({.file = file, .text = current->refused_});
}

bool Budget::isRefusedForOthers() { return current && current->refused_ == kSharedRefusal; }

Budget::Report Budget::report(const ComMsgMgrInstance& message) {
    if (!current) return Report::send;
    const std::string& kind = message.id.empty() ? message.text : message.id;
    const auto at = current->reported_.find(kind);
    if (at == current->reported_.end()) {
        if (current->reported_.size() == kKindsOfReport) return Report::drop;
        current->reported_.emplace(kind, 1);
        return Report::send;
    }
    const int count = ++at->second;
    return count < kReportsOfKind ? Report::send : count == kReportsOfKind ? Report::sendAsLast : Report::drop;
}
