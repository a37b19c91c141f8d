#pragma once
#include <string>

#include "archive/MemberSource.h"

namespace archive {

/// The members that packing a directory would give, read from the directory itself: a fixture needs no packing.
/// Nested archives are the folders that packing would make archives of.
class TreeSource final : public MemberSource {
public:
    explicit TreeSource(std::string directory) : directory_(std::move(directory)) {}

    const std::string& name() const override { return directory_; }
    std::vector<MemberInfo> files() const override;
    bool contains(std::string_view member) const override;
    std::optional<std::string> read(std::string_view member, std::uint64_t bound) const override;
    bool copyOut(std::string_view member, const std::string& destination) const override;
    std::shared_ptr<const MemberSource> openNested(std::string_view member) const override;

private:
    std::string pathOf(std::string_view member) const;

    std::string directory_;
};

/// Throws `zip::ArchiveError` when `directory` is none.
std::shared_ptr<const MemberSource> openTree(const std::string& directory);

}  // namespace archive
