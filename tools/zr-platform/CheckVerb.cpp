// Whether a tool may use platforms, and why.
#include <platform/PlatformPolicy.h>
#include <platform/PlatformQueries.h>
#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"

namespace requests = teq_platform::requests;
using teq::platform::PolicyQuestion;
using teq::platform::PolicyStep;
using teq::platform::PolicyVerdict;

namespace {

requests::PolicyRequest requestOf(const Call& call) {
    if (call.has("pre-synth") && call.has("open"))
        throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse,
                                         {.text = "--pre-synth and --open exclude each other"});
    return {.question = call.has("pre-synth") ? PolicyQuestion::preSynth
                        : call.has("open")    ? PolicyQuestion::open
                                              : PolicyQuestion::warranty,
            .toolVersion = call.get("tool-version"),
            .appRoot = call.get("app-root"),
            .productName = call.get("product")};
}

const char* answerOf(const PolicyVerdict& verdict) { return verdict.isSupported ? "usable" : "not usable"; }

boost::json::array stepsOf(const PolicyVerdict& verdict) {
    boost::json::array steps;
    for (const PolicyStep& step : verdict.steps) {
        boost::json::object facts;
        for (const auto& fact : step.facts) facts[fact.name] = fact.value;
        steps.push_back({{"rule", step.rule}, {"applies", step.applies}, {"facts", std::move(facts)}});
    }
    return steps;
}

std::string trace(const requests::Verdict& verdict) {
    std::vector<std::vector<std::string>> rows;
    for (const PolicyStep& step : verdict.steps)
        rows.push_back({step.rule, step.applies ? "yes" : "no", requests::factsOf(step)});
    std::string text = table({"rule", "applies", "looked at"}, rows);
    if (!text.ends_with('\n')) text += '\n';
    text += "newest tool that accepts it: " + (verdict.newestTool.empty() ? "none" : verdict.newestTool) + "\n";
    text +=
        std::string("exception list that would ") + (verdict.isSupported ? "refuse" : "accept") + " it: " +
        (verdict.exceptions.empty() ? "none" : HSTStringUtils::printable(requests::onOneLine(verdict.exceptions))) +
        "\n";
    return text;
}

Exit judge(const std::string& file, const Call& call, Records& records, std::string& text) {
    const requests::Verdict verdict = requests::verdict(loaded(platformFile(file, call), call), requestOf(call));
    boost::json::object record{{"file", file},
                               {"usable", verdict.isSupported},
                               {"reason", verdict.reason},
                               {"rule", verdict.steps.back().rule}};
    text += HSTStringUtils::printable(file) + ": " + answerOf(verdict) +
            (verdict.hasReason ? ": " + HSTStringUtils::printable(verdict.reason) : "") + "\n";
    if (call.has("why")) {
        record["steps"] = stepsOf(verdict);
        record["newestTool"] = verdict.newestTool;
        record["exceptions"] = verdict.exceptions;
        text += trace(verdict);
    }
    records.add(std::move(record));
    return verdict.isSupported ? Exit::done : Exit::no;
}

Exit judgeForTools(const std::string& file, const Call& call, Records& records, std::string& text) {
    const std::string range = call.get("matrix");
    const auto dots = range.find("..");
    if (dots == std::string::npos)
        throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse,
                                         {.text = "--matrix expects two versions, as 2025.1..2027.2"});
    std::vector<std::vector<std::string>> rows;
    for (const auto& [tool, verdict] : requests::verdicts(loaded(platformFile(file, call), call), requestOf(call),
                                                          range.substr(0, dots), range.substr(dots + 2))) {
        rows.push_back({tool, answerOf(verdict), verdict.steps.back().rule});
        if (!Records::areAsked(call)) continue;
        records.add({{"file", file},
                     {"tool", tool},
                     {"usable", verdict.isSupported},
                     {"reason", verdict.reason},
                     {"rule", verdict.steps.back().rule}});
    }
    text += HSTStringUtils::printable(file) + "\n" + table({"tool", "verdict", "rule"}, rows);
    if (!text.ends_with('\n')) text += '\n';
    return Exit::done;
}

}  // namespace

int runCheck(const Call& call) {
    requestOf(call);
    Records records("verdict");
    std::string text;
    Exit exit = Exit::done;
    for (const std::string& file : call.all("FILE...")) {
        try {
            const requests::Scope request;
            exit = worse(exit, call.has("matrix") ? judgeForTools(file, call, records, text)
                                                  : judge(file, call, records, text));
        } catch (const HEXAll&) {
            const teq_platform::Failure failure = teq_platform::currentFailure(file);
            Console::take().report(failure);
            records.addProblem(failure.diagnostic);
            exit = worse(exit, exitOf(failure));
        }
    }
    if (Records::areAsked(call))
        records.print(call, {});
    else
        Console::take().data(text);
    return static_cast<int>(exit);
}

int runExceptions(const Call& call) {
    const std::string& action = call["ACTION"];
    const std::string out = call.get("[OUT]", "");
    if (action == "print" && out.empty()) {
        if (call.has("ndjson"))
            throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse,
                                             {.text = "--ndjson describes what is packed; a list is one document"});
        Console::take().document(requests::exceptionsIn(call["FILE"]));
    } else if (action == "pack" && !out.empty()) {
        requests::packExceptions(call["FILE"], out, call.has("force"));
        Records::printOne(call, "packed-exceptions", {{"list", call["FILE"]}, {"destination", out}});
    } else {
        throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse,
                                         {.text = "expected pack FILE OUT, or print FILE"});
    }
    return 0;
}
