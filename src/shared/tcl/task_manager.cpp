#include "tcl/task_manager.h"

#include <utility>

#include "tcl/Interpreter.h"

namespace jun::tcltasks {
namespace {

task_manager::Evaluator& installed() {
    static auto* const present = new task_manager::Evaluator;  // outlives every static of the host
    return *present;
}

thread_local const task_limits::Values* presentLimits = nullptr;

}  // namespace

void task_manager::setEvaluator(Evaluator evaluator) { installed() = std::move(evaluator); }

task_manager::Result task_manager::eval_in_tcl(const std::string& command, bool isRecorded, bool isGlobal) {
    if (const Evaluator evaluator = installed())  // which may install another one
        return evaluator({command, isRecorded, isGlobal});
    return tcl::evaluate(command, task_limits::present());
}

task_limits::task_limits(Values values)
    : values_(std::move(values)), outer_(std::exchange(presentLimits, &values_)) {}
task_limits::~task_limits() { presentLimits = outer_; }

const task_limits::Values& task_limits::present() {
    static const Values none;
    return presentLimits ? *presentLimits : none;
}

}  // namespace jun::tcltasks
