#pragma once
#include <span>
#include <string>

#include "msg/HEXFileFault.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// Why a request has no result, as programs and shells are told.
enum class FailureKind {
    refused,      ///< the request would lose something that exists, and was not told to
    exists,       ///< the destination already exists
    unknownName,  ///< there is no such member, type, finding or message
    unknownFormat,
    wrongUse,  ///< an argument is missing or out of range
    noSuchFile,
    badInput,     ///< a file is at fault: not valid, damaged, larger than a limit
    environment,  ///< permission, no space, another fault of the system
    noMemory,
    internal,  ///< a fault of the library
};

/// How a kind is reported: one row for each.
struct FailureRow {
    FailureKind kind;
    int code;      ///< of the C interface, `zr_code`
    int exitCode;  ///< of `zr-platform`
};
ZR_API const FailureRow& rowOf(FailureKind kind);

/// A failure that no other exception of the library stands for.
class ZR_API RequestError : public HEXFileFault {
public:
    RequestError(FailureKind kind, HEXDiagnostic diagnostic) : HEXFileFault(std::move(diagnostic)), kind_(kind) {}
    ~RequestError() override;
    FailureKind kind() const { return kind_; }

private:
    FailureKind kind_;
};

struct Failure {
    FailureKind kind = FailureKind::internal;
    HEXDiagnostic diagnostic;
};
/// The exception that is being handled, whatever it is; to be called in a `catch`. `file` is what the request was
/// about, for exceptions that name none. Throws std::bad_alloc when memory runs out.
ZR_API Failure currentFailure(const std::string& file = "");

}  // namespace teq_platform
