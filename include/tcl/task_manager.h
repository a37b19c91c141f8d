#pragma once
#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "text/ZrApi.h"

namespace jun::tcltasks {

/// Evaluates Tcl commands: in the host's interpreter, if it has installed one, otherwise in an embedded Tcl 8.6, which
/// is loaded on first use. A process that uses Tcl 8.6 in another way must have loaded it before.
class ZR_API task_manager {
public:
    struct Command {
        std::string text;
        bool isRecorded = false;  ///< whether the host adds it to its journal
        bool isGlobal = true;     ///< evaluated in the global scope, whatever procedure is running
    };
    struct Result {
        bool isDone = false;  ///< the command was evaluated to its end
        std::string text;     ///< its result; otherwise why it ended early
    };
    using Evaluator = std::function<Result(const Command&)>;

    /// The evaluator of the process; an empty one restores the embedded interpreter. To be called before other threads
    /// use the library.
    static void setEvaluator(Evaluator evaluator);

    /// Evaluates a command. What an installed evaluator throws is passed on. The embedded interpreter ignores
    /// `isRecorded` and `isGlobal`: each command gets a new interpreter. It throws `HEXUserException` if Tcl is not
    /// installed.
    static Result eval_in_tcl(const std::string& command, bool isRecorded, bool isGlobal);
};

/// What the embedded interpreter may do for the calling thread, during the lifetime of this object; the innermost one
/// applies. Create it on the stack.
///
/// `exit` always ends only the evaluation, changes of the environment end with it, and the working directory is that of
/// before. Memory is not limited: Tcl ends the process when it runs out.
class ZR_API task_limits {
public:
    struct Values {
        /// Checked between commands, so that a long one, such as a program that is run, can exceed it; 0: no limit.
        std::chrono::milliseconds time{0};
        /// Allow `exec`, `socket`, `load` and `open` of pipes.
        bool mayRunPrograms = false;
        /// Gets what scripts print, at most 1 MiB for each evaluation; std::cout, if it is empty. It must not evaluate
        /// scripts.
        std::function<void(std::string_view text)> output;
    };
    explicit task_limits(Values values);
    ~task_limits();
    task_limits(const task_limits&) = delete;
    task_limits& operator=(const task_limits&) = delete;

    /// Those of the calling thread.
    static const Values& present();

private:
    Values values_;
    const Values* outer_;
};

}  // namespace jun::tcltasks
