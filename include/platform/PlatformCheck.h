#pragma once
#include <span>
#include <string>

#include "msg/HEXDiagnostic.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// An error in a file, or something valid that is probably a mistake. Its text is printable, in one line. Its name is
/// stable, unlike the text, and a row of `PlatformCheck::explanations`.
struct CheckFinding : HEXDiagnostic {
    enum class Severity { warning, error };

    Severity severity = Severity::error;
};

/// What a name means, with a bad and a good sample of `file`.
struct CheckExplanation {
    const char* name;
    CheckFinding::Severity severity;
    const char* meaning;
    const char* advice;  ///< what to do
    /// Name of the sample file. A sample is its content or, if one file is not enough, a list of files and members of
    /// archives: lines "== file" or "== archive!member", each followed by its text.
    const char* file;
    const char* bad;
    const char* good;
};

/// Checks files for authors of platforms: a reader stops at the first error, this reports all that can be found
/// without guessing.
class ZR_API PlatformCheck {
public:
    /// Name of the finding for a file that cannot be opened: missing, not a regular file, too large, not an archive.
    static constexpr const char* kUnreadable = "unreadable";

    /// The findings in a file, in the order of its text, at most 1000 of each document. The file is a descriptor (the
    /// files that it names are checked too), a software file, a hardware archive (its metadata, hpfm, emulation and
    /// extension members), or one of these members as a separate file. Archives are recognised by their extension,
    /// .lfa or .cfa, other files by extension or content. Never throws for the contents of a file, nor for a missing
    /// one.
    static HSTVector<CheckFinding> check(const std::string& file);

    /// Every name that a finding can have.
    static std::span<const CheckExplanation> explanations();
    /// Null if no finding has this name.
    static const CheckExplanation* explain(const std::string& name);
};

}  // namespace teq_platform
