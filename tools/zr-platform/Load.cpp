#include "Load.h"

#include <msg/HEXFileFault.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQReconfigurablePartition.h>
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
    std::string file = teq_platform::requests::resolve(fileOrName, repositoriesOf(call));
    Console::take().nameInput(file);
    return file;
}

namespace {

/// The extension metadata of each hardware platform, which a document includes.
std::set<std::string> extensionMembers(const HTEQPlatform& platform) {
    std::set<std::string> members;
    const auto take = [&members](const HTEQHardwarePlatform* hardware) {
        if (!hardware) return;
        const std::string member = hardware->getFile("META_JSON");
        members.insert(member.empty() ? hardware->getFile("EXT_META_JSON") : member);
    };
    take(platform.getHardwarePlatform());
    take(platform.getHardwareEmulationPlatform());
    for (const HTEQReconfigurablePartition* partition : platform.getReconfigurablePartitions()) {
        take(partition->getHardwarePlatform());
        take(partition->getHardwareEmulationPlatform());
    }
    return members;
}

/// Warns of the first error in each file or member of a platform that has been loaded. `hasFaults`: its readers have
/// sent errors; of damaged members alone they warn themselves. `isChecked`: an error that prevents the document is
/// thrown, because no document is made that would fail.
void warnOfErrors(const std::string& file, const HTEQPlatform& platform, bool hasFaults, bool isChecked) {
    const HTEQHardwarePlatform* const hardware = platform.getHardwarePlatform();
    const std::string hpfm = hardware ? hardware->getFile("HPFM") : "";
    const std::set<std::string> extensions = extensionMembers(platform);
    std::set<std::string> places;
    for (const teq_platform::CheckFinding& finding : teq_platform::PlatformCheck::check(file)) {
        if (finding.severity != teq_platform::CheckFinding::Severity::error ||
            !places.insert(finding.file + "!" + finding.member).second)
            continue;
        HEXDiagnostic line = finding;
        if (line.name == "damaged-member" && !hasFaults) continue;
        if (isChecked && line.name == "not-json" && extensions.contains(line.member)) throw HEXFileFault(line);
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
    if (hasFaults || isChecked) warnOfErrors(file, *platform, hasFaults, isChecked);
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
