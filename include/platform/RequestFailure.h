#pragma once
#include <span>
#include <string>

#include "msg/HEXFileFault.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// Why a request failed, as reported to programs and shells.
enum class FailureKind {
    refused,      ///< the request would lose existing data, and does not allow that
    exists,       ///< the destination already exists
    unknownName,  ///< there is no such member, type, finding or message
    unknownFormat,
    wrongUse,  ///< an argument is missing or out of range
    noSuchFile,
    badInput,     ///< a file is not valid, damaged, or larger than a limit
    environment,  ///< permission, no space, another error of the system
    noMemory,
    internal,  ///< an error in the library
};

/// How a kind is reported; one row per kind.
struct FailureRow {
    FailureKind kind;
    int code;      ///< of the C interface, `zr_code`
    int exitCode;  ///< of `zr-platform`
};
ZR_API const FailureRow& rowOf(FailureKind kind);

/// A failure that no other exception of the library represents.
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
/// The failure for the exception being handled, of any type; call it in a `catch`. `file` is the file of the request,
/// for exceptions that name none; a `RequestError` without a file is not about one. Throws std::bad_alloc if memory runs
/// out.
ZR_API Failure currentFailure(const std::string& file = "");
/// Likewise, for one file of many: unless the cause is an error of the system that concerns every file, the request goes
/// on with the next one, and `checkSystem` does not throw for this one.
Failure failureOfOne(const std::string& file);
/// Throws if the system refused something to this thread since the outermost `requests::Scope` began, such as another
/// open file: what was found since then may lack it.
ZR_API void checkSystem();
/// Whether it would throw.
ZR_API bool systemFailed();

}  // namespace teq_platform
