#pragma once
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "msg/ComMsgMgr.h"

/// What a request counts. `Budget.cpp` has the limits, docs/security.md repeats them.
enum class Cost {
    bytes,    ///< of members and XML files that are read whole
    values,   ///< JSON values, XML elements and attributes parsed
    content,  ///< bytes of their keys and texts, or of their tags
    records,  ///< bytes of the objects that are made from them
    nodes,    ///< values of the documents that are made
    text,     ///< bytes of these documents, and of trees made of them
    inodes,   ///< files and directories made
    names,    ///< names that the system looks up to follow links in paths, and some for each step
    data,     ///< bytes of members that are decompressed, of all files of a call; each archive has its own limits
    count_
};

/// What one request may cost, so that a small file cannot take much time or memory, however often its parts are
/// named. The outermost one on a thread counts; without one, nothing is counted.
class Budget {
public:
    Budget();
    ~Budget();
    Budget(const Budget&) = delete;
    Budget& operator=(const Budget&) = delete;

    /// Why the request may not spend this much; null if it may. What is refused once, is refused from then on.
    static const char* refusal(Cost cost, std::uint64_t amount = 1);
    /// The same; a refusal is a `HEXFileFault`.
    static void spend(Cost cost, std::uint64_t amount = 1);
    using Amounts = std::array<std::uint64_t, static_cast<std::size_t>(Cost::count_)>;
    /// What has been spent so far.
    static Amounts spent();
    /// Spends what was spent since then `times` times more: for what one caller reads once and another one each time.
    /// Nothing is spent if the request may not.
    static const char* refusalOfRepeating(const Amounts& since, std::uint64_t times);
    /// Throws if anything has been refused: for callers of code that ignores what it cannot read.
    static void expectKept(const std::string& file);

    /// Whether the request may not spend more because others of its call have: see `SharedBudget`.
    static bool isRefusedForOthers();

    enum class Report { send, sendAsLast, drop };
    /// Whether one more message of this kind is sent.
    static Report report(const ComMsgMgrInstance& message);

private:
    friend class OwnBudget;
    Amounts spent_ = {};
    const char* refused_ = nullptr;
    std::map<std::string, int> reported_;  ///< by id; plain texts by themselves
    std::unique_ptr<Budget> second_;       ///< of `OwnBudget`
    bool isSecond_ = false;
    bool isOutermost_;
};

/// Asks the budget once for many small amounts: each time that they come to `step`, and at the end.
class SmallAmounts {
public:
    SmallAmounts(Cost cost, std::uint64_t step) : cost_(cost), step_(step) {}
    /// See `Budget::refusal`.
    const char* refusal(std::uint64_t amount) {
        sum_ += amount;
        return sum_ < step_ ? nullptr : refusalOfRest();
    }
    const char* refusalOfRest() { return Budget::refusal(cost_, std::exchange(sum_, 0)); }

private:
    Cost cost_;
    std::uint64_t step_, sum_ = 0;
};
