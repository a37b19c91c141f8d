#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq::platform {

/// What the policy is asked; one operation of `NativeCatalogService` each.
enum class PolicyQuestion {
    warranty,  ///< may the tool use the platform: `isUnderWarranty`
    preSynth,  ///< may it use a platform before synthesis: `isPreSynthPlatformSupported`
    open,      ///< may it open the hardware platform at all: `canCfaBeOpened`
};
inline constexpr PolicyQuestion kPolicyQuestions[] = {PolicyQuestion::warranty, PolicyQuestion::preSynth,
                                                      PolicyQuestion::open};

/// A fact that a rule has looked at.
struct PolicyFact {
    const char* name;   ///< "tool version"
    std::string value;  ///< "2021.1"
};

/// A rule that was tried.
struct PolicyStep {
    const char* rule;
    bool applies = false;
    HSTVector<PolicyFact> facts;  ///< in the order in which the rule looked at them
};

struct PolicyVerdict {
    bool isSupported = false;
    bool hasReason = false;       ///< whether the deciding rule has a sentence for the user
    std::string reason;           ///< that sentence
    HSTVector<PolicyStep> steps;  ///< the rules in the order in which they were tried; the last one decided
};

/// A rule of the support policy. A question is decided by the first of its rules, in the order of `rules()`, whose
/// condition holds; the last one always does.
struct PolicyRule {
    const char* name;
    PolicyQuestion question;
    const char* condition;
    bool isSupported;      ///< the verdict of the rule
    const char* sentence;  ///< with {name}, {path}, {platform}, {tool} and {entry}; null if it needs no explanation
    const char* printed;   ///< a line on standard output; null if none
};

/// The table of rules that decides whether a release of the tool may use a platform.
class ZR_API SupportPolicy {
public:
    static HSTVector<PolicyRule> rules();
};

}  // namespace teq::platform
