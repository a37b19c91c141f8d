#include "Load.h"

#include <platform/HPLPlatform.h>
#include <platform/PlatformCheck.h>
#include <platform/PlatformRequests.h>

#include <set>

using teq_platform::HwMetadataMode;

HwMetadataMode modeOf(const Call& call) {
    const std::string mode = call.get("metadata");
    if (mode == "primary") return HwMetadataMode::PrimaryJsonOnly;
    if (mode == "xml") return HwMetadataMode::XmlOnly;
    return HwMetadataMode::Default;
}

teq_platform::requests::Repositories repositoriesOf(const Call& call) {
    return {.dirs = call.values("repo"), .withDefaults = !call.has("no-defaults")};
}

std::string platformFile(const std::string& fileOrName, const Call& call) {
    return teq_platform::requests::resolve(fileOrName, repositoriesOf(call));
}

namespace {

/// Warns of the first error in each file or member of a platform that has been loaded. `hasFaults`: its readers have
/// sent errors; of damaged members alone they warn themselves.
void warnOfErrors(const std::string& file, const HTEQPlatform& platform, bool hasFaults) {
    const HTEQHardwarePlatform* const hardware = platform.getHardwarePlatform();
    const std::string hpfm = hardware ? hardware->getFile("HPFM") : "";
    std::set<std::string> places;
    for (const teq_platform::CheckFinding& finding : teq_platform::PlatformCheck::check(file)) {
        if (finding.severity != teq_platform::CheckFinding::Severity::error ||
            !places.insert(finding.file + "!" + finding.member).second)
            continue;
        HEXDiagnostic line = finding;
        if (line.name == "damaged-member" && !hasFaults) continue;
        const bool isHpfm = !hpfm.empty() && line.member == hpfm;
        // Of a value of the wrong shape, the rest of the file is read.
        if (line.name != "wrong-shape")
            line.text +=
                isHpfm ? "; the file is ignored: no banks and no bus interfaces from it" : "; the file is ignored";
        Console::take().print(line, "warning");
    }
}

}  // namespace

std::shared_ptr<HTEQPlatform> loaded(const std::string& file, const Call& call, bool isChecked) {
    auto platform = teq_platform::requests::load(file, modeOf(call));
    const bool hasFaults = Console::take().takeFaults();
    if (hasFaults || isChecked) warnOfErrors(file, *platform, hasFaults);
    return platform;
}

std::shared_ptr<HTEQPlatform> tryLoad(const std::string& file, const Call& call, teq_platform::Failure& failure,
                                      bool isChecked) {
    try {
        return loaded(file, call, isChecked);
    } catch (const HEXAll&) {
        failure = teq_platform::currentFailure();
        return nullptr;
    }
}
