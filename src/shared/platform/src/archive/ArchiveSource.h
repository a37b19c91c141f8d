#pragma once
#include <memory>
#include <string>

#include "archive/MemberSource.h"
#include "zip/Archive.h"

namespace archive {

/// The members of an open zip archive.
class ArchiveSource final : public MemberSource {
public:
    /// `budget`: bytes that each call may decompress, and that all calls on nested archives may decompress together.
    explicit ArchiveSource(std::shared_ptr<const zip::Archive> archive,
                           std::uint64_t budget = zip::OutputBudget::kOfCall);
    /// `budget`: bytes that all calls together may decompress; shared with other sources.
    ArchiveSource(std::shared_ptr<const zip::Archive> archive, std::shared_ptr<zip::OutputBudget> budget);

    const std::string& name() const override { return archive_->name(); }
    std::vector<MemberInfo> files() const override;
    bool contains(std::string_view member) const override { return archive_->find(member) != nullptr; }
    std::optional<std::string> read(std::string_view member, std::uint64_t bound) const override;
    bool copyOut(std::string_view member, const std::string& destination, bool mayReplace) const override;
    std::shared_ptr<const MemberSource> openNested(std::string_view member) const override;

private:
    std::shared_ptr<zip::OutputBudget> budgetOfCall() const;

    std::shared_ptr<const zip::Archive> archive_;
    std::uint64_t callBudget_ = 0;
    int depth_ = 0;                                    ///< 0 for a file on disk
    std::shared_ptr<zip::OutputBudget> sharedBudget_;  ///< null if each call has its own budget
};

/// Opens the archive at `path`; within a request (`zip::Request`), only once and with the request's budget. Throws
/// `zip::ArchiveError`.
std::shared_ptr<const MemberSource> open(const std::string& path);

}  // namespace archive
