#include "platform/NativeCatalogService.h"

#include "json/JsonText.h"
#include "json/TreePath.h"
#include "msg/Printed.h"
#include "msg/SharedBudget.h"
#include "platform/HTEQEnv.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/NativePlatformRepoService.h"
#include "platform/PlatformLoader.h"
#include "services/CatalogReport.h"
#include "services/DocumentTree.h"
#include "services/ExceptionList.h"
#include "services/PlatformFacts.h"
#include "util/HUTEnv.h"
#include "zip/Request.h"

namespace teq::platform {
namespace {

using ptree = NativeCatalogService::ptree;
using Loader = CatalogService::Loader;

constexpr auto kMode = teq_platform::HwMetadataMode::Default;

/// Root and product of the first call apply to the whole process.
services::ExceptionSource installedExceptions() {
    static const services::ExceptionSource source{services::ExceptionList::fileBelow(HUTEnv::getJUNAppRoot()),
                                                  HTEQEnv::getProductName()};
    return source;
}

bool answer(const PolicyVerdict& verdict, std::string& reason) {
    if (verdict.hasReason) reason = verdict.reason;
    return verdict.isSupported;
}

}  // namespace

std::string NativeCatalogService::getAllAsJsonStr(const std::string& paths, bool detailed, bool) const {
    const SharedBudget shared;
    HSTVector<std::string> files;
    NativePlatformRepoService().getZdfFiles("", paths, files);
    ptree all;
    ptree& reports = all.push_back({"platforms", ptree()})->second;
    for (const std::string& file : files) {
        const zip::Request request;
        Loader loader(file, kMode);
        ptree report;
        if (getPlatformInfo_(&loader, report, detailed))
            reports.push_back({std::string(), ptree()})->second.swap(report);
    }
    return json::write(all);
}

std::string NativeCatalogService::getAsJsonStr(const std::string& file, bool detailed, bool unused) const {
    Loader loader(file, kMode);
    return getAsJsonStr(&loader, detailed, unused);
}

std::string NativeCatalogService::getAsJsonStr(Loader* loader, bool detailed, bool) const {
    ptree report;
    return getPlatformInfo_(loader, report, detailed) ? json::write(report) : std::string();
}

std::string NativeCatalogService::getValue(const std::string& file, const std::string& key) const {
    Loader loader(file, kMode);
    return getValue(&loader, key);
}

std::string NativeCatalogService::getValue(Loader* loader, const std::string& key) const {
    if (!loader || key.empty()) return {};
    const std::string report = getAsJsonStr(loader, true, true);
    if (report.empty()) return {};
    const ptree tree = services::parsed(report);
    const ptree* const node = json::findPath(tree, key);
    if (!node) msg::print("error: key path '" + key + "' doens't exist\n");
    return node && node->empty() ? node->data() : std::string();
}

bool NativeCatalogService::isPreSynthPlatform(Loader* loader) const {
    if (!loader) return msg::print("Error: failed to acquire a platform loader.\n"), false;
    return services::isPreSynth(loader->load().get());
}

bool NativeCatalogService::getPlatformInfo_(Loader* loader, ptree& report, bool detailed) const {
    if (!loader) return false;
    const auto platform = loader->load();
    if (!platform || !platform->getHardwarePlatform()) return msg::print("Error: failed to load platform\n"), false;
    if (platform->isHidden()) return false;
    services::writeReport(
        *platform, detailed, [&] { return judge(PolicyQuestion::warranty, loader); }, report);
    return true;
}

bool NativeCatalogService::isUnderWarranty(Loader* loader, std::string& reason,
                                           const std::string& productName) const {
    return answer(judge(PolicyQuestion::warranty, loader, productName), reason);
}
bool NativeCatalogService::isUnderWarranty(const std::string& file, std::string& reason,
                                           const std::string& productName) const {
    Loader loader(file, kMode);
    return isUnderWarranty(&loader, reason, productName);
}

bool NativeCatalogService::isPreSynthPlatformSupported(Loader* loader, std::string& reason) const {
    return answer(judge(PolicyQuestion::preSynth, loader), reason);
}
bool NativeCatalogService::isPreSynthPlatformSupported(const std::string& file, std::string& reason) const {
    Loader loader(file, kMode);
    return isPreSynthPlatformSupported(&loader, reason);
}

bool NativeCatalogService::canCfaBeOpened(Loader* loader, std::string& reason) const {
    return answer(judge(PolicyQuestion::open, loader), reason);
}
bool NativeCatalogService::canCfaBeOpened(const std::string& file, std::string& reason) const {
    Loader loader(file, kMode);
    return canCfaBeOpened(&loader, reason);
}

PolicyVerdict NativeCatalogService::judge(PolicyQuestion question, Loader* loader,
                                          const std::string& productName) const {
    services::PlatformFacts facts(loader, {getCompilerVersion_(), installedExceptions, productName});
    return policy::decide(question, facts);
}

int NativeCatalogService::getColor(Loader* loader, std::string& reason) const {
    services::PlatformFacts facts(loader, {{}, installedExceptions, {}});
    if (!facts.hasLoader() || !facts.load()) return static_cast<int>(policy::Color::unlisted);
    const policy::Listing listing = facts.listing();
    reason = listing.reason;
    return static_cast<int>(listing.color);
}

bool NativeCatalogService::getPlatformVersion(const HTEQHardwarePlatform* hardware, std::string& text, int& major,
                                              int& minor) {
    const policy::Version version = hardware ? policy::versionOf(hardware->getVersion()) : policy::Version();
    text = version.text;
    major = version.major;
    minor = version.minor;
    return hardware != nullptr;
}

std::string NativeCatalogService::getCompilerVersion_() const {
    if (!testCompilerVersion_.empty()) return testCompilerVersion_;
    return std::to_string(HUTEnv::getMajor()) + "." + std::to_string(HUTEnv::getMinor());
}

}  // namespace teq::platform
