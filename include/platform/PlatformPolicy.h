#pragma once
#include <memory>
#include <string>

#include "platform/HTEQPlatform.h"
#include "platform/RequestFailure.h"
#include "platform/SupportPolicy.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform::requests {

/// How the support policy is asked.
struct PolicyRequest {
    teq::platform::PolicyQuestion question = teq::platform::PolicyQuestion::warranty;
    std::string toolVersion;  ///< as "2026.2"; empty for the host's, `HUTEnv::getMajor` and `getMinor`
    std::string appRoot;  ///< where the exception list is looked for, and the product's name; empty for the host's
    std::string productName;  ///< given to `HUTEnv`, and stays there; the exception list does not look at it
};

/// A verdict, and what would change it.
struct Verdict : teq::platform::PolicyVerdict {
    std::string newestTool;  ///< that accepts the platform: "2027.*", "2030.1", "any"; empty if none does
    std::string exceptions;  ///< an exception list that would turn the verdict round, as JSON; empty if none would
};
/// The policy's verdict on a loaded platform. A tool version that is not one is `wrongUse`; a platform's version that is
/// not one is `badInput`.
ZR_API Verdict verdict(const std::shared_ptr<HTEQPlatform>& platform, const PolicyRequest& request);

/// The bare verdict of the host's tool on its use.
ZR_API teq::platform::PolicyVerdict warranty(const std::shared_ptr<HTEQPlatform>& platform);

/// What a rule looked at, in one line: "tool version: 2026.2, unified: yes". Long values are cut.
ZR_API std::string factsOf(const teq::platform::PolicyStep& step);

struct VerdictOfTool {
    std::string toolVersion;
    teq::platform::PolicyVerdict verdict;
};
/// The verdicts for the tool versions from `first` to `last`, with four releases in each year before the last one. A
/// range of more than 100 years is `wrongUse`.
ZR_API HSTVector<VerdictOfTool> verdicts(const std::shared_ptr<HTEQPlatform>& platform, const PolicyRequest& request,
                                         const std::string& first, const std::string& last);

/// Writes an exception list, which is JSON of at most 1 MiB, in its packed form. A text that is not such a list is
/// `badInput`.
ZR_API void packExceptions(const std::string& json, const std::string& list, bool mayReplace);
/// The JSON of a packed exception list, as it was packed.
ZR_API std::string exceptionsIn(const std::string& list);

}  // namespace teq_platform::requests
