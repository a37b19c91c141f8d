#include "archive/ArchiveSource.h"

#include <utility>

#include "msg/Budget.h"
#include "zip/ArchiveError.h"
#include "zip/Destination.h"
#include "zip/NestedArchive.h"
#include "zip/Request.h"

namespace archive {
namespace {

constexpr int kMaxDepth = 2;

}  // namespace

ArchiveSource::ArchiveSource(std::shared_ptr<const zip::Archive> archive, std::uint64_t budget)
    : archive_(std::move(archive)), callBudget_(budget) {}

ArchiveSource::ArchiveSource(std::shared_ptr<const zip::Archive> archive, std::shared_ptr<zip::OutputBudget> budget)
    : archive_(std::move(archive)), sharedBudget_(std::move(budget)) {}

std::vector<MemberInfo> ArchiveSource::files() const {
    std::vector<MemberInfo> files;
    files.reserve(archive_->members().size());
    for (const zip::Member& member : archive_->members())
        if (!member.isDirectory()) files.push_back({std::string(member.name), member.size});
    return files;
}

std::shared_ptr<zip::OutputBudget> ArchiveSource::budgetOfCall() const {
    return sharedBudget_ ? sharedBudget_ : std::make_shared<zip::OutputBudget>(callBudget_);
}

std::optional<std::string> ArchiveSource::read(std::string_view member, std::uint64_t bound) const {
    const zip::Member* const found = archive_->find(member);
    if (!found) return std::nullopt;
    if (const auto budget = budgetOfCall(); found->size <= bound && !budget->spend(found->size))
        throw zip::ArchiveError(name(), std::string(member), "decompressing it would exceed the budget of the call");
    if (const char* const why = found->size <= bound ? Budget::refusal(Cost::bytes, found->size) : nullptr)
        throw zip::ArchiveError(name(), std::string(member), why);
    return archive_->read(*found, bound);
}

bool ArchiveSource::copyOut(std::string_view member, const std::string& destination, bool mayReplace) const {
    const zip::Member* const found = archive_->find(member);
    if (!found) return false;
    const auto budget = budgetOfCall();
    zip::writeDestination(
        destination, [&](const zip::Archive::Sink& take) { archive_->copyTo(*found, take, *budget); }, mayReplace);
    return true;
}

std::shared_ptr<const MemberSource> ArchiveSource::openNested(std::string_view member) const {
    const zip::Member* const found = archive_->find(member);
    if (!found) return nullptr;
    if (depth_ == kMaxDepth)
        throw zip::ArchiveError(name(), std::string(member), "archives can be nested at most two deep");
    auto budget = budgetOfCall();
    auto inner = zip::openNested(*archive_, *found, *budget);
    auto nested = std::make_shared<ArchiveSource>(std::move(inner), std::move(budget));
    nested->depth_ = depth_ + 1;
    return nested;
}

std::shared_ptr<const MemberSource> open(const std::string& path) {
    auto archive = zip::openShared(path);
    if (auto budget = zip::Request::budget())
        return std::make_shared<ArchiveSource>(std::move(archive), std::move(budget));
    return std::make_shared<ArchiveSource>(std::move(archive));
}

}  // namespace archive
