#pragma once
#include <memory>

class Budget;

/// During its lifetime, its thread's request counts anew, with the same limits: for a second reading of what the request
/// has read.
class OwnBudget {
public:
    OwnBudget();
    ~OwnBudget();
    OwnBudget(const OwnBudget&) = delete;
    OwnBudget& operator=(const OwnBudget&) = delete;

private:
    Budget* outer_;
    std::unique_ptr<Budget> own_;
};
