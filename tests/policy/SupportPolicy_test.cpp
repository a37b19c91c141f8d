#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "policy/PolicyFacts.h"

namespace {

using policy::Color;
using policy::decide;
using policy::PolicyQuestion;
using policy::PolicyVerdict;
using teq::platform::kPolicyQuestions;
using teq::platform::SupportPolicy;

struct Given : policy::Facts {
    bool given = true, loads = true, pre = true, unified = true, host = true;
    std::string version = "2020.2", tool = "2021.1";
    std::vector<std::string> extended;
    policy::Listing listed;

    bool hasLoader() override { return given; }
    bool load() override { return loads; }
    std::string filePath() override { return "dir/p.zdf"; }
    bool isPreSynth() override { return pre; }
    bool isUnified() override { return unified; }
    bool isForHost() override { return host; }
    std::string platformVersion() override { return version; }
    std::string toolVersion() override { return tool; }
    std::shared_ptr<const policy::ExtendedWarranty> extendedWarranty() override {
        return std::make_shared<policy::ExtendedWarranty>(extended);
    }
    policy::Listing listing() override { return listed; }
};

/// The policy as one formula for each question.
bool isSupported(PolicyQuestion question, const Given& is) {
    if (!is.given || !is.loads || !is.unified) return false;
    if (question == PolicyQuestion::preSynth) return is.pre && is.version == is.tool;
    if (!is.host) return true;
    if (is.version > is.tool) return false;  // four digits, a dot and one more
    if (question == PolicyQuestion::open) return true;
    const bool inTime = is.version >= "2017.4" && std::stoi(is.tool) - std::stoi(is.version) < 2;
    return !is.extended.empty() || is.listed.color == Color::white || (inTime && is.listed.color != Color::black);
}

TEST(SupportPolicy, AgreesWithItsFormulasAndHasNoRuleThatNothingReaches) {
    const Capture capture;
    std::set<std::pair<PolicyQuestion, std::string>> deciding, rules;
    const auto compare = [&](Given given) {
        for (const PolicyQuestion question : kPolicyQuestions) {
            const PolicyVerdict verdict = decide(question, given);
            EXPECT_EQ(verdict.isSupported, isSupported(question, given))
                << given.version << " by " << given.tool << ": " << verdict.steps.back().rule;
            deciding.emplace(question, verdict.steps.back().rule);
        }
    };
    const char* const versions[] = {"2017.3", "2017.4", "2018.1", "2019.2", "2020.1", "2020.2", "2021.1", "2022.1"};
    for (const char* version : versions)
        for (const char* tool : versions)
            for (int bits = 0; bits < 64; ++bits)
                for (const Color color : {Color::black, Color::white, Color::unreadable, Color::unlisted}) {
                    Given given;
                    given.given = bits & 1, given.loads = bits & 2, given.pre = bits & 4;
                    given.unified = bits & 8, given.host = bits & 16;
                    if (bits & 32) given.extended = {"1999.1", tool};
                    given.version = version, given.tool = tool, given.listed.color = color;
                    compare(given);
                }
    for (const auto& rule : SupportPolicy::rules()) rules.emplace(rule.question, rule.name);
    EXPECT_EQ(deciding, rules);
}

/// The verdict on facts written as "question name=value...", with what was printed and sent before it.
std::string verdictOn(const std::string&, const std::string& text) {
    std::istringstream words(text);
    std::string question, word;
    words >> question;
    Given given;
    const std::map<std::string, std::function<void(const std::string&)>> setters{
        {"platform", [&](auto& value) { given.version = value; }},
        {"tool", [&](auto& value) { given.tool = value; }},
        {"extended", [&](auto& value) { given.extended.push_back(value); }},
        {"entry", [&](auto& value) { given.listed.reason = value; }},
        {"color", [&](auto& value) { given.listed.color = static_cast<Color>(std::stoi(value)); }},
        {"not", [&](auto& value) {
             (value == "given"     ? given.given
              : value == "loaded"  ? given.loads
              : value == "pre"     ? given.pre
              : value == "unified" ? given.unified
                                   : given.host) = false;
         }}};
    while (words >> word) setters.at(word.substr(0, word.find('=')))(word.substr(word.find('=') + 1));
    const std::map<std::string, PolicyQuestion> questions{{"warranty", PolicyQuestion::warranty},
                                                          {"preSynth", PolicyQuestion::preSynth},
                                                          {"open", PolicyQuestion::open}};
    const Capture capture;
    std::string verdict;
    try {
        const PolicyVerdict found = decide(questions.at(question), given);
        verdict = std::string(found.isSupported ? "yes" : "no") + (found.hasReason ? ": " + found.reason : "");
    } catch (const std::logic_error& e) {
        verdict = e.what();
    }
    std::string messages;
    for (const std::string& line : capture.lines()) messages += line + "\n";
    return capture.printed() + messages + verdict;
}

TEST(SupportPolicy, SaysWhatTheCasesSay) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/policy/verdicts.case", verdictOn);
}

}  // namespace
