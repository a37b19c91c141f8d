#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "archive/MemberSource.h"
#include "zip/OutputBudget.h"

namespace archive {

/// While one of these lives, the archives that its thread opens stay open and are shared: one request asks an archive
/// many things, and opens it once. All that is unpacked meanwhile counts against one budget. Lives on the stack; of
/// several, the outermost one keeps the archives.
class Request {
public:
    /// `budget`: how many bytes may be unpacked; that of the outermost one counts.
    explicit Request(std::uint64_t budget = zip::OutputBudget::kOfCall);
    ~Request();
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

private:
    bool isOutermost_;
};

/// The archive at `path`: within a request the one that was opened before, as long as the path names the same file in
/// the same state. Outside of a request it is opened anew, and closed with the last pointer. Throws
/// `zip::ArchiveError`.
std::shared_ptr<const MemberSource> open(const std::string& path);

}  // namespace archive
