#include <platform/PlatformCheck.h>

#include "Console.h"
#include "Load.h"

using teq_platform::CheckFinding;
using teq_platform::PlatformCheck;

namespace {

const char* severityOf(const CheckFinding& finding) {
    return finding.severity == CheckFinding::Severity::error ? "error" : "warning";
}

std::string lineOf(const CheckFinding& finding) {
    return Console::take().shown(finding.report(severityOf(finding))) + "\n";
}

boost::json::object recordOf(const CheckFinding& finding) {
    return {{"file", Console::take().shown(finding.file)},
            {"member", finding.member},
            {"line", finding.line},
            {"column", finding.column},
            {"severity", severityOf(finding)},
            {"name", finding.name},
            {"element", finding.element},
            {"text", finding.text}};
}

Exit exitOf(const CheckFinding& finding, bool failOnWarning) {
    if (finding.name == PlatformCheck::kUnreadable || finding.name == "missing-file") return Exit::input;
    return failOnWarning || finding.severity == CheckFinding::Severity::error ? Exit::no : Exit::done;
}

}  // namespace

int runValidate(const Call& call) {
    const bool failOnWarning = call.get("fail-on") == "warning";
    const bool asRecords = call.has("json") || call.has("ndjson");
    Records records("finding");
    Exit exit = Exit::done;
    for (const std::string& file : call.all("FILE..."))
        for (const CheckFinding& finding : PlatformCheck::check(platformFile(file, call))) {
            exit = worse(exit, exitOf(finding, failOnWarning));
            if (asRecords)
                records.add(recordOf(finding));
            else
                Console::take().data(lineOf(finding));
        }
    if (asRecords) records.print(call, {});
    return static_cast<int>(exit);
}
