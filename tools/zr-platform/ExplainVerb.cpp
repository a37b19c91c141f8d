#include <platform/PlatformExplanation.h>
#include <platform/PlatformRequests.h>

#include "Console.h"

using teq_platform::Explanation;
using teq_platform::PlatformExplanation;

namespace {

boost::json::object recordOf(const Explanation& row) {
    boost::json::object record{{"name", row.name},
                               {"severity", row.severity},
                               {"text", row.text},
                               {"meaning", row.meaning},
                               {"advice", row.advice}};
    if (!row.file.empty()) record["file"] = row.file;
    if (!row.bad.empty()) record["bad"] = row.bad, record["good"] = row.good;
    return record;
}

/// The first sentence.
std::string shortened(const std::string& text) {
    const auto end = text.find(". ");
    return text.substr(0, end == std::string::npos ? text.size() : end + 1);
}

}  // namespace

int runExplain(const Call& call) {
    Records records("explanation");
    const std::string name = call.get("[NAME]", "");
    if (call.has("list") == !name.empty())
        throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse,
                                         {.text = "expected a NAME, or --list for all names"});
    const auto all = call.has("list") ? PlatformExplanation::all()
                                      : HSTVector<Explanation>{teq_platform::requests::explanation(name)};
    std::vector<std::vector<std::string>> rows;
    for (const Explanation& row : all) {
        records.add(recordOf(row));
        rows.push_back({row.name, row.severity, shortened(row.meaning)});
    }
    if (Records::areAsked(call))
        records.print(call, {});
    else
        Console::take().data(call.has("list") ? table({"name", "severity", "meaning"}, rows)
                                              : teq_platform::requests::explain(name));
    return 0;
}
