#pragma once
#include <memory>

class Budget;

/// During its lifetime, its thread's request counts on a second budget with the same limits: for a second reading of what
/// the request has read. All second readings of a request share it.
class OwnBudget {
public:
    OwnBudget();
    ~OwnBudget();
    OwnBudget(const OwnBudget&) = delete;
    OwnBudget& operator=(const OwnBudget&) = delete;

private:
    Budget* outer_;
    std::unique_ptr<Budget> own_;  ///< outside of a request
};
