#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

#include <platform/PlatformCatalog.h>
#include <platform/PlatformQueries.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"

namespace requests = teq_platform::requests;
using requests::CatalogEntry;

namespace {

void report(const CatalogEntry& broken) { Console::take().print(broken.reason, "error"); }

std::string ndjson(const CatalogEntry& entry) {
    const boost::json::object broken{{"platformFile", entry.file}, {"broken", entry.reason.format()}};
    const std::string record =
        entry.report.empty() ? boost::json::serialize(broken) : requests::onOneLine(entry.report);
    return HSTStringUtils::printableJson(record) + "\n";
}

}  // namespace

int runCatalog(const Call& call) {
    const requests::CatalogRequest request{.where = repositoriesOf(call), .isDetailed = call.has("detailed")};
    bool isWhole = true;
    if (call.has("json") && !call.has("ndjson")) {
        Console::take().document(requests::catalogDocument(request, [&isWhole](const CatalogEntry& broken) {
            isWhole = false;
            report(broken);
        }));
        return isWhole || !call.has("strict") ? 0 : static_cast<int>(Exit::no);
    }
    Records records("platform");
    requests::catalog(request, [&](const CatalogEntry& entry) {
        const bool isGood = !entry.report.empty();
        isWhole = isWhole && isGood;
        if (call.has("ndjson")) return Console::take().data(ndjson(entry));
        if (!isGood) return report(entry);
        records.add(boost::json::parse(entry.report).as_object());
    });
    std::vector<std::string> columns{"baseName", "version", "type", "platformState", "platformFile"};
    if (request.isDetailed) columns.insert(columns.end() - 1, {"partArchitecture", "warranty"});
    if (!call.has("ndjson")) records.print(call, columns);
    return isWhole || !call.has("strict") ? 0 : static_cast<int>(Exit::no);
}
