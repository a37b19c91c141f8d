#pragma once
#include <span>
#include <string>

#include "msg/HEXDiagnostic.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// One thing that is wrong in a file, or legal and probably a mistake. Its text is printable, in one line.
struct CheckFinding : HEXDiagnostic {
    enum class Severity { warning, error };

    Severity severity = Severity::error;
    const char* name = "";  ///< never changes with the text; a row of `PlatformCheck::explanations`
};

/// What a name means, with a bad and a good sample. Of what the samples are: see `file`.
struct CheckExplanation {
    const char* name;
    CheckFinding::Severity severity;
    const char* meaning;
    const char* advice;  ///< what to do
    /// Name of the file that the samples are about. A sample is its content, or, where a file is not enough, a list
    /// of files and members of archives: lines "== file" or "== archive!member" with the text of each behind them.
    const char* file;
    const char* bad;
    const char* good;
};

/// Checks files for those who make platforms: where a reader stops at the first fault, all are found that can be
/// found without guessing.
class ZR_API PlatformCheck {
public:
    /// Name of the finding for what cannot be opened: missing, no regular file, too large, no archive.
    static constexpr const char* kUnreadable = "unreadable";

    /// The findings in a file, in the order of its text, at most 1000 of each document. The file is a descriptor (the
    /// files that it names are checked too), a software file, a hardware archive (its metadata, hpfm, emulation and
    /// extension members), or one of these members as a file of its own. Archives are told by their extension, .lfa
    /// or .cfa, other files by extension or content. Never throws for what stands in a file, nor for one that is
    /// missing.
    static HSTVector<CheckFinding> check(const std::string& file);

    /// Every name that a finding can have.
    static std::span<const CheckExplanation> explanations();
    /// Null for a name that is none.
    static const CheckExplanation* explain(const std::string& name);
};

}  // namespace teq_platform
