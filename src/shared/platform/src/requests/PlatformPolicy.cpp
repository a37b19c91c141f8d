#include "platform/PlatformPolicy.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <stdexcept>

#include "archive/PackedText.h"
#include "env/ProductName.h"
#include "json/JsonText.h"
#include "msg/Budget.h"
#include "platform/HTEQEnv.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/PlatformRequests.h"
#include "policy/PolicyFacts.h"
#include "readers/Reading.h"
#include "services/ExceptionList.h"
#include "services/PlatformFacts.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"

namespace teq_platform::requests {
namespace {

using policy::Color;
using policy::Version;
using services::ExceptionSource;
using services::PlatformFacts;
using teq::platform::PolicyVerdict;

/// The facts of a platform for another tool, or with another mark in the exception list.
class Supposed : public policy::Facts {
public:
    Supposed(policy::Facts& real, std::string tool, std::optional<Color> color = std::nullopt)
        : real_(real), tool_(std::move(tool)), color_(color) {}

    bool hasLoader() override { return real_.hasLoader(); }
    bool load() override { return real_.load(); }
    std::string filePath() override { return real_.filePath(); }
    bool isPreSynth() override { return real_.isPreSynth(); }
    bool isUnified() override { return real_.isUnified(); }
    bool isForHost() override { return real_.isForHost(); }
    std::string platformVersion() override { return real_.platformVersion(); }
    std::string toolVersion() override { return tool_; }
    std::shared_ptr<const policy::ExtendedWarranty> extendedWarranty() override { return real_.extendedWarranty(); }
    policy::Listing listing() override { return color_ ? policy::Listing{*color_, {}} : real_.listing(); }
    bool isSupposed() const override { return true; }

private:
    policy::Facts& real_;
    std::string tool_;
    std::optional<Color> color_;
};

ExceptionSource sourceOf(const PolicyRequest& request) {
    if (request.appRoot.empty())
        return {services::ExceptionList::fileBelow(HUTEnv::getJUNAppRoot()), HTEQEnv::getProductName()};
    return {services::ExceptionList::fileBelow(request.appRoot),
            productNameOf(request.appRoot, HTEQEnv::isRunningAsHollinUnitTest())};
}

std::string versionText(const PolicyRequest& request) {
    if (!request.toolVersion.empty()) return request.toolVersion;
    return std::to_string(HUTEnv::getMajor()) + "." + std::to_string(HUTEnv::getMinor());
}

Version toolVersion(const std::string& text) {
    try {
        if (text.find('.') != std::string::npos) return policy::versionOf(text);
    } catch (const std::logic_error&) {
    }
    throw RequestError(FailureKind::wrongUse,
                       {.text = "'" + HSTStringUtils::excerpt(text) + "' is not a version such as 2026.2"});
}

/// What `run` gives; extension metadata that is not JSON, or a version of the platform that is not one, becomes an error
/// in its file.
template <class Run>
auto checked(const HTEQPlatform& platform, Run run) {
    try {
        auto result = run();
        checkSystem();  // a list that cannot be read must not count as none
        return result;
    } catch (const boost::property_tree::ptree_error& e) {
        throw RequestError(FailureKind::badInput, readers::diagnosticOf(e, platform.getPlatformFile()));
    } catch (const std::logic_error&) {
        throw RequestError(FailureKind::badInput, {.file = platform.getPlatformFile(),
                                                   .text = "a version in \"extended_warranty\" or of the hardware is "
                                                           "not two numbers such as 2026.2"});
    }
}

bool isSupported(const PolicyRequest& request, policy::Facts& facts, const std::string& tool,
                 std::optional<Color> color = std::nullopt) {
    Supposed supposed(facts, tool, color);
    return decide(request.question, supposed).isSupported;
}

std::string newestTool(const HTEQPlatform& platform, const PolicyRequest& request, policy::Facts& facts) {
    const std::string latest = std::to_string(std::numeric_limits<int>::max());
    if (isSupported(request, facts, latest + "." + latest)) return "any";
    if (!platform.getHardwarePlatform()) return {};
    const Version made = policy::versionOf(platform.getHardwarePlatform()->getVersion());
    std::vector<Version> versions{made};
    for (const std::string& text : facts.extendedWarranty()->texts()) versions.push_back(policy::versionOf(text));
    if (const int next = made.major < std::numeric_limits<int>::max() ? made.major + 1 : made.major;
        isSupported(request, facts, std::to_string(next) + "." + latest))
        versions.push_back({std::to_string(next) + ".*", next, std::numeric_limits<int>::max()});
    std::ranges::sort(versions, [](const Version& a, const Version& b) {
        return std::pair(a.major, a.minor) > std::pair(b.major, b.minor);
    });
    for (const Version& version : versions)
        if (version.text.ends_with('*') ||
            (version.text.find('.') != std::string::npos && isSupported(request, facts, version.text)))
            return version.text;
    return {};
}

/// The list with one entry that would turn the verdict round.
std::string contraryList(const HTEQPlatform& platform, const PolicyRequest& request, policy::Facts& facts,
                         const std::string& tool, bool isYes) {
    const HTEQHardwarePlatform* const hardware = services::documentedHardware(platform);
    if (!hardware || isSupported(request, facts, tool, isYes ? Color::black : Color::white) == isYes) return {};
    json::ptree entry, product, list, document;
    product.data() = sourceOf(request).product;
    entry.add_child("products", json::ptree()).push_back({std::string(), product});
    entry.add("key", "hardwarePlatform.uniqueName");
    entry.add("value", hardware->getUniqueName());
    entry.add("reason", "");
    list.push_back({std::string(), entry});
    document.push_back({isYes ? "black_list" : "white_list", list});
    return json::write(document);
}

}  // namespace

Verdict verdict(const std::shared_ptr<HTEQPlatform>& platform, const PolicyRequest& request) {
    const std::string tool = versionText(request);
    toolVersion(tool);
    return checked(*platform, [&] {
        PlatformFacts facts(platform, {tool, [&] { return sourceOf(request); }, request.productName});
        Verdict result{policy::decide(request.question, facts), {}, {}};
        result.newestTool = newestTool(*platform, request, facts);
        result.exceptions = contraryList(*platform, request, facts, tool, result.isSupported);
        return result;
    });
}

PolicyVerdict warranty(const std::shared_ptr<HTEQPlatform>& platform) {
    return checked(*platform, [&] {
        PlatformFacts facts(platform, {versionText({}), [] { return sourceOf({}); }, ""});
        return policy::decide(teq::platform::PolicyQuestion::warranty, facts);
    });
}

std::string factsOf(const teq::platform::PolicyStep& step) {
    std::string text;
    for (const auto& fact : step.facts)
        text += (text.empty() ? "" : ", ") + std::string(fact.name) + ": " + HSTStringUtils::excerpt(fact.value);
    return text;
}

HSTVector<VerdictOfTool> verdicts(const std::shared_ptr<HTEQPlatform>& platform, const PolicyRequest& request,
                                  const std::string& first, const std::string& last) {
    const Version from = toolVersion(first), to = toolVersion(last);
    constexpr int kMinors = 4, kMaxMinor = 99, kMaxYears = 100;
    if (to.major < from.major || to.major - static_cast<long long>(from.major) >= kMaxYears || to.minor > kMaxMinor)
        throw RequestError(FailureKind::wrongUse, {.text = "the versions are not a range of at most 100 years"});
    return checked(*platform, [&] {
        PlatformFacts facts(platform, {"", [&] { return sourceOf(request); }, request.productName});
        HSTVector<VerdictOfTool> all;
        for (int major = from.major; major <= to.major; ++major)
            for (int minor = major == from.major ? from.minor : 1; minor <= (major == to.major ? to.minor : kMinors);
                 ++minor) {
                Budget::spend(Cost::nodes);  // a call may ask this for thousands of platforms
                Supposed supposed(facts, std::to_string(major) + "." + std::to_string(minor));
                all.push_back({supposed.toolVersion(), policy::decide(request.question, supposed)});
            }
        return all;
    });
}

void packExceptions(const std::string& json, const std::string& list, bool mayReplace) {
    const std::string text = wholefile::read(json, archive::kMaxPackedText);
    json::ptree tree;
    json::parse(text, json, tree);
    if (const std::string fault = services::ExceptionList::faultOf(tree); !fault.empty())
        throw RequestError(FailureKind::badInput, {.file = json, .text = fault});
    writeFile(list, archive::packedText(text), mayReplace);
}

std::string exceptionsIn(const std::string& list) {
    if (!HUTFile::exists(list)) throw HEXFileNotFoundException(list);
    return archive::readPackedText(list);
}

}  // namespace teq_platform::requests
