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

    /// What is wrong with a listed file.
    struct Fault {
        const char* name;
        std::string text;
    };
    /// Checks that the member exists. The content of members that a reader opens (hpfm, emulation targets, extensions)
    /// is checked too, once. `directory`: the folder of the metadata's files, "hw_emu" for an emulation child.
    std::optional<Fault> checkListed(const std::string& type, const std::string& name, const std::string& directory);

    void setKnown(KnownNames known) { known_ = std::move(known); }

    /// Whether the archive has a member of this name, or a folder.
    bool lists(const std::string& name) const { return archive_.lists(name); }

    /// Whether a listed hpfm replaces the interfaces in the JSON metadata.
    bool hasValidHpfm() const { return validHpfm_; }

    /// The text of a member, or nullopt after adding a finding.
    std::optional<Source> read(const std::string& member, Findings& findings) const;

    /// The findings in the members, in the order of the list.
    Findings takeFindings() { return std::move(findings_); }

private:
    void checkContent_(const std::string& type, const std::string& member);
    void checkProject_(const std::string& member);

    const archive::PlatformArchive& archive_;
    std::set<std::string> checked_;
    KnownNames known_;
    bool validHpfm_ = false;
    Findings findings_;
};

}  // namespace check
