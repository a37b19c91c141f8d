#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "msg/Budget.h"
#include "zip/Archive.h"
#include "zip/OutputBudget.h"

namespace zip {

/// During its lifetime, the archives that its thread opens stay open and are shared, so that one request opens each
/// archive once, and everything decompressed counts against one budget. Create it on the stack; if requests are
/// nested, the outermost one keeps the archives.
class Request {
public:
    /// `budget`: how many bytes may be decompressed; the outermost request's applies.
    explicit Request(std::uint64_t budget = OutputBudget::kOfCall);
    ~Request();
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    /// That of the thread's request; null outside of one.
    static std::shared_ptr<OutputBudget> budget();

private:
    Budget counted_;
    bool isOutermost_;
};

/// The archive at `path`: within a request the one that was opened before, by whatever path, as long as it is the same
/// file in the same state. Outside of a request it is opened anew, and closed with the last pointer. Throws
/// `ArchiveError`.
std::shared_ptr<const Archive> openShared(const std::string& path);
/// The same, but opened for change (`FileBytes::openForChange`).
std::shared_ptr<const Archive> openSharedForChange(const std::string& path);

}  // namespace zip
