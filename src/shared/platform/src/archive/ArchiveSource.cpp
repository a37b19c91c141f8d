#include "archive/ArchiveSource.h"

#include <utility>

#include "zip/ArchiveError.h"
#include "zip/Destination.h"
#include "zip/NestedArchive.h"

namespace archive {
namespace {

constexpr int kDeepest = 2;

}  // namespace

ArchiveSource::ArchiveSource(std::unique_ptr<const zip::Archive> archive, std::uint64_t budget)
    : archive_(std::move(archive)), callBudget_(budget) {}

std::vector<MemberInfo> ArchiveSource::files() const {
    std::vector<MemberInfo> files;
    files.reserve(archive_->members().size());
    for (const zip::Member& member : archive_->members())
        if (!member.isDirectory()) files.push_back({std::string(member.name), member.size});
    return files;
}

std::shared_ptr<zip::OutputBudget> ArchiveSource::budgetOfCall() const {
    return chainBudget_ ? chainBudget_ : std::make_shared<zip::OutputBudget>(callBudget_);
}

std::optional<std::string> ArchiveSource::read(std::string_view member, std::uint64_t bound) const {
    const zip::Member* const found = archive_->find(member);
    if (!found) return std::nullopt;
    std::string data = archive_->read(*found, bound);
    if (!budgetOfCall()->spend(data.size()))
        throw zip::ArchiveError(name(), std::string(member), "one call unpacks too much from nested archives");
    return data;
}

bool ArchiveSource::copyOut(std::string_view member, const std::string& destination) const {
    const zip::Member* const found = archive_->find(member);
    if (!found) return false;
    const auto budget = budgetOfCall();
    zip::writeDestination(destination,
                          [&](const zip::Archive::Sink& take) { archive_->copyTo(*found, take, *budget); });
    return true;
}

std::shared_ptr<const MemberSource> ArchiveSource::openNested(std::string_view member) const {
    const zip::Member* const found = archive_->find(member);
    if (!found) return nullptr;
    if (depth_ == kDeepest)
        throw zip::ArchiveError(name(), std::string(member), "archives are opened at most two deep in another one");
    auto budget = budgetOfCall();
    auto nested = std::make_shared<ArchiveSource>(zip::openNested(*archive_, *found, *budget));
    nested->depth_ = depth_ + 1;
    nested->chainBudget_ = std::move(budget);
    return nested;
}

std::shared_ptr<const MemberSource> openArchive(const std::string& path) {
    return std::make_shared<ArchiveSource>(std::make_unique<zip::Archive>(path));
}

}  // namespace archive
