#pragma once
#include <optional>
#include <set>
#include <string>

#include "archive/PlatformArchive.h"
#include "check/Findings.h"

namespace check {

/// The members of an archive as its metadata lists them.
class ArchiveMembers {
public:
    /// `archive` must outlive it.
    explicit ArchiveMembers(const archive::PlatformArchive& archive) : archive_(archive) {}

    /// What is wrong with a file that metadata lists.
    struct Fault {
        const char* name;
        std::string text;
    };
    /// Whether the member is there. Members that a reader opens (hpfm, emulation targets, extensions) are checked
    /// too, each once. `directory`: where the files of the metadata lie, "hw_emu" for an emulation child.
    std::optional<Fault> checkListed(const std::string& type, const std::string& name, const std::string& directory);

    /// Whether a listed hpfm takes the place of what the JSON metadata says of interfaces.
    bool hasValidHpfm() const { return validHpfm_; }

    /// The text of a member, or a finding and nothing.
    std::optional<Source> read(const std::string& member, Findings& findings) const;

    /// What has been found in the members, in the order of listing.
    Findings takeFindings() { return std::move(findings_); }

private:
    void checkContent_(const std::string& type, const std::string& member);

    const archive::PlatformArchive& archive_;
    std::set<std::string> checked_;
    bool validHpfm_ = false;
    Findings findings_;
};

}  // namespace check
