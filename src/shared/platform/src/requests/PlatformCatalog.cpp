#include "platform/PlatformCatalog.h"

#include <optional>

#include "json/JsonText.h"
#include "msg/SharedBudget.h"
#include "msg/Silence.h"
#include "platform/NativeCatalogService.h"
#include "platform/NativePlatformRepoService.h"
#include "platform/PlatformPolicy.h"
#include "platform/PlatformRequests.h"
#include "services/CatalogReport.h"

namespace teq_platform::requests {
namespace {

using json::ptree;

/// The report; no value for the hidden platform.
std::optional<ptree> reportOf(const std::string& file, bool detailed) {
    const Scope scope;
    const auto platform = load(file, HwMetadataMode::Default);
    if (!platform->getHardwarePlatform())
        throw HEXFileFault({.file = file, .text = "the file contains no hardware platform"});
    if (platform->isHidden()) return std::nullopt;
    ptree report;
    services::writeReport(
        *platform, detailed, [&] { return warranty(platform); }, report);
    return report;
}

/// Calls `use` with each file, and its report or the reason why there is none.
void forEachReport(const CatalogRequest& request,
                   const std::function<void(const std::string& file, ptree* report, const HEXDiagnostic&)>& use) {
    const msg::Silence silence;
    const SharedBudget shared;
    HSTVector<std::string> files;
    teq::platform::NativePlatformRepoService().getZdfFiles("", request.where.dirs, request.where.withDefaults, files);
    for (const std::string& file : files) {
        std::optional<ptree> report;
        HEXDiagnostic reason;
        try {
            report = reportOf(file, request.isDetailed);
            if (!report) continue;
        } catch (const HEXAll&) {
            reason = failureOfOne(file).diagnostic;
        }
        use(file, report ? &*report : nullptr, reason);
    }
}

}  // namespace

void catalog(const CatalogRequest& request, const std::function<void(const CatalogEntry&)>& each) {
    forEachReport(request, [&each](const std::string& file, const ptree* report, const HEXDiagnostic& reason) {
        each({file, report ? json::write(*report) : std::string(), reason});
    });
}

std::string catalogDocument(const CatalogRequest& request, const std::function<void(const CatalogEntry&)>& broken) {
    ptree document;
    ptree& reports = document.push_back({"platforms", ptree()})->second;
    forEachReport(request, [&](const std::string& file, ptree* report, const HEXDiagnostic& reason) {
        if (report)
            reports.push_back({std::string(), ptree()})->second.swap(*report);
        else if (broken)
            broken({file, "", reason});
    });
    return json::write(document);
}

}  // namespace teq_platform::requests
