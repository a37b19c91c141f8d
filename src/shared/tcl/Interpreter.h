#pragma once
#include <string>

#include "tcl/task_manager.h"

namespace tcl {

/// Evaluates a command in a new interpreter of the embedded Tcl. Locale, signals, descriptors, threads, working
/// directory and environment of the process are afterwards as before. Throws `HEXUserException` if Tcl is not
/// installed.
jun::tcltasks::task_manager::Result evaluate(const std::string& command,
                                             const jun::tcltasks::task_limits::Values& limits);

}  // namespace tcl
