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

/// The archive of a platform: which member holds its metadata, and the files that the metadata lists. Everything that
/// reads, checks, packs, edits or shows a platform asks here. Damaged archives raise `zip::ArchiveError`.
class PlatformArchive {
public:
    using Mode = teq_platform::HwMetadataMode;

    /// Opens the archive, within a request only once. Throws `zip::ArchiveError`.
    explicit PlatformArchive(const std::string& file);

    const std::string& name() const { return source_->name(); }
    const MemberSource& source() const { return *source_; }

    struct Metadata {
        std::string member;
        PlatformMember kind;
        bool isXml() const { return kind == PlatformMember::xml || kind == PlatformMember::hwEmuXml; }
        bool isOfChild() const;  ///< of the emulation platform in the same archive
    };
    /// The member that `mode` reads: the alternative JSON member, else the primary one, else the XML member. Nothing
    /// when the archive has none of those that the mode allows.
    std::optional<Metadata> metadata(Mode mode) const;
    /// The JSON member of the emulation child: the primary one, and only without it the alternative one.
    std::optional<Metadata> childMetadata(Mode mode) const;
    /// All metadata members that the archive has, in the order of `metadata`, those of the child last.
    std::vector<Metadata> allMetadata() const;
    /// What to report of an archive without a member that `mode` allows.
    HEXDiagnostic missingMetadata(Mode mode) const;

    bool contains(std::string_view member) const { return source_->contains(member); }
    /// Whether a file or folder that metadata lists is there; a folder is when it has something in it.
    bool lists(const std::string& name) const;
    /// The whole member, of at most `kMetadataBound` bytes; nothing when there is none of the name.
    std::optional<std::string> text(std::string_view member) const { return source_->read(member); }
    /// The same, but a member that cannot be read is ignored like a missing one, with a warning message that names it.
    std::optional<std::string> textOrWarning(std::string_view member) const;
    /// Copies a member, as `MemberSource::copyOut` does.
    bool copy(std::string_view member, const std::string& destination, bool mayReplace) const {
        return source_->copyOut(member, destination, mayReplace);
    }

private:
    std::optional<Metadata> present(PlatformMember kind) const;
    std::string nameOf(PlatformMember kind) const;

    std::shared_ptr<const MemberSource> source_;
    std::string extension_;                                  ///< of the file that the path leads to
    mutable std::optional<std::vector<std::string>> names_;  ///< sorted; made when a folder is asked for
};

}  // namespace archive
