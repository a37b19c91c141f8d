#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archive/MemberSource.h"
#include "archive/PlatformMembers.h"
#include "msg/HEXDiagnostic.h"
#include "platform/HwMetadataMode.h"

namespace archive {

/// The archive of a platform: the members with its metadata, and the files that the metadata lists. All code that
/// reads, checks, packs, edits or shows a platform uses this class. A damaged archive throws `zip::ArchiveError`.
class PlatformArchive {
public:
    using Mode = teq_platform::HwMetadataMode;

    /// Opens the archive; within a request, only once. Throws `zip::ArchiveError`.
    explicit PlatformArchive(const std::string& file);
    /// `canonical`: what `file` leads to, when the caller has computed it; its extension names the metadata.
    PlatformArchive(const std::string& file, std::string canonical);

    const std::string& name() const { return source_->name(); }
    const MemberSource& source() const { return *source_; }

    struct Metadata {
        std::string member;
        PlatformMember kind;
        bool isXml() const { return kind == PlatformMember::xml || kind == PlatformMember::hwEmuXml; }
        bool isOfChild() const;  ///< of the emulation platform in the same archive
    };
    /// The member that `mode` reads: the alternative JSON member, else the primary one, else the XML member. nullopt
    /// if the archive has no member that the mode allows.
    std::optional<Metadata> metadata(Mode mode) const;
    /// The JSON member of the emulation child: the primary one, otherwise the alternative one.
    std::optional<Metadata> childMetadata(Mode mode) const;
    /// All existing metadata members, in the order of `metadata`; those of the child last.
    std::vector<Metadata> allMetadata() const;
    /// The diagnostic for an archive without a member that `mode` allows, or with XML where only JSON is read.
    HEXDiagnostic missingMetadata(Mode mode) const;

    bool contains(std::string_view member) const { return source_->contains(member); }
    /// Whether a listed file or folder exists. A folder exists if it contains a member.
    bool lists(const std::string& name) const;
    /// The whole member, of at most `kMetadataBound` bytes; nullopt if there is no member of that name.
    std::optional<std::string> text(std::string_view member) const { return source_->read(member); }
    /// The same, but a damaged or too large member is ignored like a missing one, with a warning message that names it.
    std::optional<std::string> textOrWarning(std::string_view member) const;
    /// Copies a member, see `MemberSource::copyOut`.
    bool copy(std::string_view member, const std::string& destination, bool mayReplace) const {
        return source_->copyOut(member, destination, mayReplace);
    }

private:
    std::optional<Metadata> present(PlatformMember kind) const;
    std::string nameOf(PlatformMember kind) const;

    std::shared_ptr<const MemberSource> source_;
    std::string file_;
    mutable std::optional<std::string> canonical_;           ///< computed on first use
    mutable std::optional<std::vector<std::string>> names_;  ///< sorted; created on the first query for a folder
};

}  // namespace archive
