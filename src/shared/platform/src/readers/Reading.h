#pragma once
#include <exception>
#include <functional>
#include <string>

#include "msg/ComMsgMgr.h"
#include "msg/HEXDiagnostic.h"

/// How readers fail: inside, by one exception with the place of the fault; at the edge, as their signatures ask for.
namespace readers {

/// What an exception says about what was being read: `file`, or `member` of that archive, unless it names its own.
HEXDiagnostic diagnosticOf(const std::exception& e, const std::string& file, const std::string& member = "");

/// Runs `read`. What it throws is sent as the message that `messageOf` makes of it, and leaves as a `HEXFileFault`
/// with the id of that message; only std::bad_alloc leaves as itself.
void reading(const std::string& file, const std::string& member, const std::function<void()>& read,
             const std::function<ComMsgMgrInstance(const std::exception&)>& messageOf);

/// Sends `message` and throws the fault that it reports.
[[noreturn]] void fail(const ComMsgMgrInstance& message, HEXDiagnostic diagnostic);

/// For the signatures that answer false: whether `read` ended without a `HEXFileFault`.
bool succeeds(const std::function<void()>& read);
/// The same for one that has reported std::bad_alloc as well.
bool succeedsReported(const std::function<void()>& read);

}  // namespace readers
