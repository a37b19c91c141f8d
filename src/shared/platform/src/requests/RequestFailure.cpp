#include "platform/RequestFailure.h"

#include <algorithm>
#include <array>
#include <boost/property_tree/exceptions.hpp>
#include <filesystem>
#include <new>
#include <system_error>

#include "platform/PlatformParseException.h"
#include "readers/Reading.h"
#include "util/HUTFile.h"
#include "util/ShownPath.h"
#include "util/SystemFault.h"
#include "util/WholeFile.h"

namespace teq_platform {
namespace {

using enum FailureKind;

constexpr std::array kRows{
    FailureRow{refused, 3, 1},       FailureRow{exists, 3, 1},      FailureRow{unknownName, 2, 1},
    FailureRow{unknownFormat, 2, 2}, FailureRow{wrongUse, 1, 2},    FailureRow{noSuchFile, 2, 3},
    FailureRow{badInput, 4, 3},      FailureRow{environment, 5, 4}, FailureRow{noMemory, 6, 4},
    FailureRow{internal, 7, 70},
};

template <class E>
bool isA(const std::exception& e) {
    return dynamic_cast<const E*>(&e) != nullptr;
}

/// The kind for an exception type: the first row that matches, from derived types to base types.
constexpr struct {
    bool (*fits)(const std::exception& e);
    FailureKind kind;
} kKinds[] = {
    {isA<HEXFileNotFoundException>, noSuchFile},
    {isA<HEXFileFault>, badInput},
    {isA<wholefile::TooLarge>, badInput},
    {isA<HEXUserException>, environment},
    {isA<HEXAll>, badInput},
    {isA<PlatformParseException>, badInput},
    {isA<boost::property_tree::ptree_error>, badInput},
    {isA<std::bad_alloc>, noMemory},
    {isA<std::system_error>, environment},
    {[](const std::exception&) { return true; }, internal},
};

FailureKind kindOf(const std::exception& e) {
    if (const auto* error = dynamic_cast<const RequestError*>(&e)) return error->kind();
    return std::ranges::find_if(kKinds, [&](const auto& row) { return row.fits(e); })->kind;
}

/// The texts of the exceptions nested in `e`.
std::string reasonsOf(const std::exception& e) {
    try {
        std::rethrow_if_nested(e);
    } catch (const std::exception& reason) {
        return ": " + std::string(reason.what()) + reasonsOf(reason);
    } catch (...) {
        return ": unknown reason";
    }
    return {};
}

/// The model knows absolute paths: one in the folder of `file` is shown as the user of `file` writes it.
std::string shownPath(const std::string& path, const std::string& file) {
    if (file.empty() || !path.starts_with('/') || file.starts_with('/')) return path;
    const std::string folder = HUTFile::getParent(HUTFile::getCanonicalName(file));
    return path.starts_with(folder + "/") ? util::shownPath(path, file) : path;
}

HEXDiagnostic diagnosticOf(const std::exception& e, FailureKind kind, const std::string& file) {
    if (kind == noMemory) return {.file = file, .text = "out of memory"};
    if (isA<HEXFileNotFoundException>(e)) return {.file = e.what(), .text = "no such file"};
    if (const auto* error = dynamic_cast<const std::filesystem::filesystem_error*>(&e))
        return {.file = error->path1().empty() ? file : error->path1().native(), .text = error->code().message()};
    HEXDiagnostic diagnostic = readers::diagnosticOf(e, file);
    if (diagnostic.file.empty() && !isA<RequestError>(e)) diagnostic.file = file;  // a limit of the request
    if (kind == badInput) diagnostic.file = shownPath(diagnostic.file, file);
    diagnostic.text += reasonsOf(e);
    return diagnostic;
}

/// The error of the system that made a file seem bad, or to be missing; null if there was none.
const util::SystemFault* causeOf(FailureKind kind, const std::exception& e, const HEXDiagnostic& diagnostic) {
    if (kind == noSuchFile) util::noteWhyMissing(diagnostic.file);
    return kind == noSuchFile || (kind == badInput && !isA<RequestError>(e)) ? util::systemFault() : nullptr;
}

}  // namespace

RequestError::~RequestError() = default;

bool systemFailed() { return util::systemFault() != nullptr; }

void checkSystem() {
    if (const util::SystemFault* fault = util::systemFault())
        throw RequestError(environment, {.file = fault->path, .text = fault->text});
}

const FailureRow& rowOf(FailureKind kind) { return *std::ranges::find(kRows, kind, &FailureRow::kind); }

Failure currentFailure(const std::string& file) {
    try {
        throw;
    } catch (const std::exception& e) {
        Failure failure{kindOf(e), {}};
        failure.diagnostic = diagnosticOf(e, failure.kind, file);
        if (const util::SystemFault* const cause = causeOf(failure.kind, e, failure.diagnostic))
            failure = {environment, {.file = cause->path, .text = cause->text}};
        return failure;
    } catch (...) {
        return {internal, {.file = file, .text = "unknown exception"}};
    }
}

Failure failureOfOne(const std::string& file) {
    Failure failure = currentFailure(file);
    util::forgetFaultOfOneFile();
    return failure;
}

}  // namespace teq_platform
