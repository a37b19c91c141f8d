#include "platform/SupportPolicy.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>

#include "msg/ComMsgMgr.h"
#include "msg/Printed.h"
#include "policy/PolicyFacts.h"
#include "text/FirstPieces.h"
#include "text/HSTStringUtils.h"

namespace policy {
namespace {

using teq::platform::PolicyRule;
using teq::platform::PolicyStep;

int strictNumber(const std::string& piece) {
    std::size_t end = 0;
    const int number = std::stoi(piece, &end);
    if (end != piece.size()) throw std::invalid_argument("stoi");
    return number;
}

bool isBefore(const Version& a, const Version& b) {
    return a.major < b.major || (a.major == b.major && a.minor < b.minor);
}

constexpr std::size_t kMaxFact = 4000;  ///< bytes of a fact that are kept or named in a sentence

/// What the rules of one verdict ask. Facts are fetched once, and recorded with each rule that looks at them.
class Asking {
public:
    Asking(PolicyQuestion question, Facts& facts) : question_(question), facts_(facts) {}

    void begin(PolicyStep& step) { step_ = &step; }

    bool hasLoader() {
        return ask(hasLoader_, "platform given", [&] { return facts_.hasLoader(); });
    }
    bool isLoaded() {
        return ask(isLoaded_, "loaded", [&] { return facts_.load(); });
    }
    bool isPreSynth() {
        return ask(isPreSynth_, "before synthesis", [&] { return facts_.isPreSynth(); });
    }
    bool isUnified() {
        return ask(isUnified_, "unified", [&] { return facts_.isUnified(); });
    }
    bool isForHost() {
        return ask(isForHost_, "for a host", [&] { return facts_.isForHost(); });
    }
    const Version& platform() {
        return ask(platform_, "platform version", [&] { return versionOf(facts_.platformVersion()); });
    }
    const Version& tool() {
        return ask(tool_, "tool version", [&] { return toolVersion(); });
    }
    const ExtendedWarranty& extendedWarranty() {
        return *ask(extended_, "extended warranty", [&] {
            if (!facts_.isSupposed()) ComMsgMgr::sendMsg("@74-78@%s", tool().text);
            return tool().major == 0 ? std::make_shared<const ExtendedWarranty>() : facts_.extendedWarranty();
        });
    }
    const Listing& listing() {
        return ask(listing_, "exception list", [&] { return facts_.listing(); });
    }

    /// The sentence with what is known in its places.
    std::string filled(const char* sentence) {
        const std::string path = facts_.filePath();
        return fmt::format(fmt::runtime(sentence), fmt::arg("path", path),
                           fmt::arg("name", std::filesystem::path(path).filename().native()),
                           fmt::arg("platform", platform_ ? textOf(*platform_) : ""),
                           fmt::arg("tool", tool_ ? textOf(*tool_) : ""),
                           fmt::arg("entry", listing_ && !listing_->reason.empty()
                                                 ? " Reason: " + HSTStringUtils::cut(listing_->reason, kMaxFact)
                                                 : std::string()));
    }

private:
    static std::string textOf(bool value) { return value ? "yes" : "no"; }
    static std::string textOf(const Version& version) { return HSTStringUtils::cut(version.text, kMaxFact); }
    static std::string textOf(const std::shared_ptr<const ExtendedWarranty>& warranty) {
        std::string text;
        for (const std::string& version : warranty->texts()) {
            if (text.size() > kMaxFact) break;
            text += (text.empty() ? "" : ", ") + HSTStringUtils::cut(version, kMaxFact);
        }
        return warranty->texts().empty() ? "none" : HSTStringUtils::cut(text, kMaxFact);
    }
    static std::string textOf(const Listing& listing) {
        constexpr const char* kTexts[] = {"black_list", "white_list", "no list", "not listed"};
        return kTexts[static_cast<int>(listing.color)];
    }

    template <class T, class Fetch>
    const T& ask(std::optional<T>& known, const char* name, Fetch fetch) {
        if (!known) known = fetch();
        const auto isSame = [name](const teq::platform::PolicyFact& fact) { return fact.name == name; };
        if (std::ranges::none_of(step_->facts, isSame)) step_->facts.push_back({name, textOf(*known)});
        return *known;
    }

    /// The tool's version, or the question's default for a tool without one.
    Version toolVersion() {
        const std::string text = facts_.toolVersion();
        const auto pieces = HSTStringUtils::split(text, '.');
        if (pieces.size() > 1 && !pieces[0].empty() && !pieces[1].empty()) return versionOf(text);
        const bool isPreSynth = question_ == PolicyQuestion::preSynth;
        msg::print(
            std::string("Critical Warning: the current tool is versionless, please set the appropriate product "
                        "name/version") +
            (isPreSynth ? ". Setting a default value of 2020.1 for the major and minor version.\n" : "\n"));
        return versionOf(isPreSynth ? "2020.1" : "2019.1");
    }

    PolicyQuestion question_;
    Facts& facts_;
    PolicyStep* step_ = nullptr;
    std::optional<bool> hasLoader_, isLoaded_, isPreSynth_, isUnified_, isForHost_;
    std::optional<Version> platform_, tool_;
    std::optional<std::shared_ptr<const ExtendedWarranty>> extended_;
    std::optional<Listing> listing_;
};

/// A rule with its condition in code.
struct Rule : PolicyRule {
    bool (*applies)(Asking& ask);
};

bool always(Asking&) { return true; }
bool isNotGiven(Asking& ask) { return !ask.hasLoader(); }
bool isNotLoaded(Asking& ask) { return !ask.isLoaded(); }
bool isNotPreSynth(Asking& ask) { return !ask.isPreSynth(); }
bool isNotUnified(Asking& ask) { return !ask.isUnified(); }
bool isForNoHost(Asking& ask) { return !ask.isForHost(); }
bool isNewer(Asking& ask) {
    const Version& platform = ask.platform();
    return isBefore(ask.tool(), platform);
}
bool isSame(Asking& ask) {
    const Version& platform = ask.platform();
    const Version& tool = ask.tool();
    return !isBefore(platform, tool) && !isBefore(tool, platform);
}
bool isExtended(Asking& ask) {
    const Version& tool = ask.tool();
    return ask.extendedWarranty().lists(tool);
}
template <Color color>
bool isListed(Asking& ask) {
    return ask.listing().color == color;
}
bool isTooOld(Asking& ask) { return isBefore(ask.platform(), {"", 2017, 4}); }
bool isWithinTwoYears(Asking& ask) {
    const int years = ask.tool().major - ask.platform().major;
    return years == 0 || years == 1;
}

constexpr auto kWarranty = PolicyQuestion::warranty;
constexpr auto kPreSynth = PolicyQuestion::preSynth;
constexpr auto kOpen = PolicyQuestion::open;
constexpr bool kYes = true, kNo = false;
constexpr const char* kNotLoaded = "Error: failed to load platform\n";

// clang-format off
constexpr Rule kRules[] = {
    {{"no-platform", kWarranty, "no loader is given", kNo, nullptr, kNotLoaded}, isNotGiven},
    {{"not-loaded", kWarranty, "the platform cannot be loaded", kNo, nullptr, kNotLoaded}, isNotLoaded},
    {{"not-unified", kWarranty, "the platform is not unified", kNo,
      "Platform '{name}' is not a unified platform. By policy, non-unified platforms are not supported by the current tool version", nullptr}, isNotUnified},
    {{"no-host", kWarranty, "the design intent is not data center, server managed or external host", kYes, nullptr, nullptr}, isForNoHost},
    {{"newer-than-tool", kWarranty, "the platform's version is above the tool's", kNo,
      "Platform '{name}' (version {platform}) is not supported by the current tool version ({tool}). By policy, the platform version can not be newer than the current tool version", nullptr}, isNewer},
    {{"extended-warranty", kWarranty, "the platform's extended warranty lists the tool's version", kYes,
      "Platform '{name}' has been explicitly enabled for this release with an extended warranty.", nullptr}, isExtended},
    {{"black-list", kWarranty, "an entry of the exceptions' black_list matches first", kNo,
      "Platform '{name}' has been marked unsupported due to known issues.{entry}", nullptr}, isListed<Color::black>},
    {{"white-list", kWarranty, "an entry of the exceptions' white_list matches first", kYes,
      "Platform '{name}' has been explicitly enabled for this release.{entry}", nullptr}, isListed<Color::white>},
    {{"too-old", kWarranty, "the platform's version is below 2017.4", kNo,
      "Platform '{name}' (version {platform}) is not supported by the current tool version ({tool}). By policy, the platform version can not be older than 2017.4", nullptr}, isTooOld},
    {{"calendar", kWarranty, "the tool is of the platform's year, or the year after", kYes, nullptr, nullptr}, isWithinTwoYears},
    {{"out-of-calendar", kWarranty, "always", kNo,
      "Platform '{name}' (version {platform}) is not supported by the current tool version ({tool}). By policy, platforms are supported for the remainder of the calendar year release plus the following calendar year release", nullptr}, always},

    {{"no-platform", kPreSynth, "no loader is given", kNo, nullptr, nullptr}, isNotGiven},
    {{"not-pre-synth", kPreSynth, "the platform's state is not pre_synth", kNo,
      "Platform '{path}' is not a PRE_SYNTH platform", nullptr}, isNotPreSynth},
    {{"not-loaded", kPreSynth, "the platform cannot be loaded", kNo,
      "Failed to load the platform. Can not continue with establishing platform support with respect to the tool flow.", kNotLoaded}, isNotLoaded},
    {{"not-unified", kPreSynth, "the platform is not unified", kNo,
      "Platform '{name}' is not a unified platform. By policy, non-unified platforms are not supported by the current tool version", nullptr}, isNotUnified},
    {{"same-release", kPreSynth, "the platform's version is the tool's", kYes, nullptr, nullptr}, isSame},
    {{"newer-than-tool", kPreSynth, "the platform's version is above the tool's", kNo,
      "Platform '{name}' (version {platform}) is a PRE_SYNTH platform and is not supported by the current tool version ({tool}). By policy, the platform version can not be newer than the current tool version", nullptr}, isNewer},
    {{"older-than-tool", kPreSynth, "always", kNo,
      "Platform '{name}' (version {platform}) is a PRE_SYNTH platform and is not supported by the current tool version ({tool}). By policy, platforms are only supported on the same tool release on which the platform was created.", nullptr}, always},

    {{"no-platform", kOpen, "no loader is given", kNo, nullptr, nullptr}, isNotGiven},
    {{"not-loaded", kOpen, "the platform cannot be loaded", kNo, nullptr, nullptr}, isNotLoaded},
    {{"not-unified", kOpen, "the platform is not unified", kNo,
      "CFA '{name}' is not a unified platform. By policy, non-unified platforms are not supported by the current tool version", nullptr}, isNotUnified},
    {{"no-host", kOpen, "the design intent is not data center, server managed or external host", kYes, nullptr, nullptr}, isForNoHost},
    {{"newer-than-tool", kOpen, "the platform's version is above the tool's", kNo,
      "CFA '{name}' (version {platform}) is not supported by the current tool version ({tool}). By policy, the CFA version can not be newer than the current tool version", nullptr}, isNewer},
    {{"not-newer", kOpen, "always", kYes, nullptr, nullptr}, always},
};
// clang-format on

}  // namespace

Version versionOf(const std::string& text) {
    const auto pieces = ::text::firstPieces(text, '.', 3);
    return {text, strictNumber(pieces[0]), pieces.size() > 1 ? strictNumber(pieces[1]) : 0};
}

ExtendedWarranty::ExtendedWarranty(std::vector<std::string> texts) : texts_(std::move(texts)) {
    try {
        for (const std::string& text : texts_) {
            const Version version = versionOf(text);
            versions_.emplace_back(version.major, version.minor);
        }
    } catch (const std::logic_error&) {
        fault_ = std::current_exception();
    }
    std::ranges::sort(versions_);
}

bool ExtendedWarranty::lists(const Version& tool) const {
    const bool isListed = std::ranges::binary_search(versions_, std::pair(tool.major, tool.minor));
    if (!isListed && fault_) std::rethrow_exception(fault_);
    return isListed;
}

PolicyVerdict decide(PolicyQuestion question, Facts& facts) {
    PolicyVerdict verdict;
    Asking ask(question, facts);
    for (const Rule& rule : kRules) {
        if (rule.question != question) continue;
        PolicyStep& step = verdict.steps.emplace_back(PolicyStep{rule.name, false, {}});
        ask.begin(step);
        step.applies = rule.applies(ask);
        if (!step.applies) continue;
        if (rule.printed) msg::print(rule.printed);
        verdict.isSupported = rule.isSupported;
        verdict.hasReason = rule.sentence != nullptr;
        if (rule.sentence) verdict.reason = ask.filled(rule.sentence);
        break;
    }
    return verdict;
}

}  // namespace policy

namespace teq::platform {

HSTVector<PolicyRule> SupportPolicy::rules() {
    return HSTVector<PolicyRule>(std::begin(policy::kRules), std::end(policy::kRules));
}

}  // namespace teq::platform
