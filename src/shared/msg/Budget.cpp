#include "msg/Budget.h"

#include <array>
#include <iterator>
#include <utility>

#include "msg/HEXFileFault.h"
#include "msg/OwnBudget.h"

namespace {

struct Limit {
    std::uint64_t most;
    const char* refusal;
};
/// In the order of `Cost`.
constexpr std::array kLimits{
    Limit{64U << 20, "the request reads more than 64 MiB of metadata"},
    Limit{500'000, "the request reads more than 500000 values"},
    Limit{64U << 20, "the objects of the platform take more than 64 MiB"},
    Limit{500'000, "the document has more than 500000 values"},
    Limit{64U << 20, "the document has more than 64 MiB"},
    Limit{20'000, "the request makes more than 20000 files and directories"},
};
static_assert(kLimits.size() == static_cast<std::size_t>(Cost::count_), "one row for each cost");

constexpr int kReportsOfKind = 100;
constexpr std::size_t kKindsOfReport = 1000;

thread_local Budget* current = nullptr;

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
    current = budget.get();
}

OwnBudget::~OwnBudget() {
    own_.reset();
    current = outer_;
}

const char* Budget::refusal(Cost cost, std::uint64_t amount) {
    if (!current) return nullptr;
    const auto row = static_cast<std::size_t>(cost);
    std::uint64_t& spent = current->spent_[row];
    if (amount <= kLimits[row].most - spent) {
        spent += amount;
        return nullptr;
    }
    spent = kLimits[row].most;
    if (!current->refused_) current->refused_ = kLimits[row].refusal;
    return kLimits[row].refusal;
}

Budget::Amounts Budget::spent() { return current ? current->spent_ : Amounts(); }

const char* Budget::refusalOfRepeating(const Amounts& since, std::uint64_t times) {
    if (!current) return nullptr;
    Amounts& spent = current->spent_;
    for (std::size_t row = 0; row < spent.size(); ++row) {
        const std::uint64_t once = spent[row] - since[row];
        if (once > 0 && times > (kLimits[row].most - spent[row]) / once) return kLimits[row].refusal;
    }
    for (std::size_t row = 0; row < spent.size(); ++row) spent[row] += (spent[row] - since[row]) * times;
    return nullptr;
}

void Budget::spend(Cost cost, std::uint64_t amount) {
    if (const char* const why = refusal(cost, amount)) throw HEXFileFault({.text = why});
}

void Budget::expectKept(const std::string& file) {
    if (current && current->refused_) throw HEXFileFault({.file = file, .text = current->refused_});
}

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
