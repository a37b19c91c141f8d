#pragma once
#include <exception>
#include <functional>
#include <string>

#include "msg/ComMsgMgr.h"
#include "msg/HEXDiagnostic.h"

/// How readers fail: internally by one exception with the location of the error, externally as their signatures
/// require.
namespace readers {

/// The diagnostic for an exception while reading `file`, or `member` of that archive, unless it names its own.
HEXDiagnostic diagnosticOf(const std::exception& e, const std::string& file, const std::string& member = "");

/// Runs `read`. An exception is sent as the message that `messageOf` creates, and rethrown as a `HEXFileFault` with
/// the id of that message; std::bad_alloc is rethrown unchanged.
void reading(const std::string& file, const std::string& member, const std::function<void()>& read,
             const std::function<ComMsgMgrInstance(const std::exception&)>& messageOf);

/// Sends `message` and throws the error that it reports.
[[noreturn]] void fail(const ComMsgMgrInstance& message, HEXDiagnostic diagnostic);

/// For signatures that return false on errors: whether `read` ended without a `HEXFileFault`.
bool succeeds(const std::function<void()>& read);
/// The same for a `read` that has reported std::bad_alloc as well.
bool succeedsReported(const std::function<void()>& read);

}  // namespace readers
