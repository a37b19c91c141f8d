#include <platform/FileKind.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQPlatformXMLReader.h>
#include <platform/HTEQReconfigurablePartition.h>
#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>

#include <map>

#include "Console.h"
#include "Load.h"
#include "ShowHardware.h"
#include "Text.h"

namespace requests = teq_platform::requests;
using teq_platform::Failure;
using teq_platform::FailureKind;
using teq_platform::FileKind;
using teq_platform::fileKindOf;

namespace {

void showIdentity(Text& text, const HTEQPlatform& platform, const std::string& file) {
    text.heading("Platform", "platform");
    text.line("name", platform.getName());
    text.line("vendor", platform.getVendor());
    text.line("library", platform.getLibrary());
    text.line("version", platform.getVersion());
    text.line("description", platform.getDescription());
    text.line("type", platform.getTypePrettyString());
    const auto shown = [&file](const std::string& path) { return requests::shownPath(path, file); };
    text.line("file", shown(platform.getPlatformFile()));
    text.line("hardware file", shown(platform.getHardwarePlatformFile()));
    text.line("emulation file", shown(platform.getHardwareEmuPlatformFile()));
    text.line("software file", shown(platform.getSoftwarePlatformFile()));
}

void showPartitions(Text& text, const HTEQPlatform& platform) {
    for (const HTEQReconfigurablePartition* partition : platform.getReconfigurablePartitions()) {
        const bool isDefault = partition->getID() == platform.getDefaultRPId();
        const std::string title = "partition " + std::to_string(partition->getID()) + (isDefault ? " (default)" : "");
        if (partition->getHardwarePlatform()) showHardware(text, *partition->getHardwarePlatform(), title);
        if (partition->hasDistinctHardwareEmulationPlatform() && partition->hasHardwareEmulationPlatform())
            showHardware(text, *partition->getHardwareEmulationPlatform(), title + ", emulation");
    }
}

void showAll(Text& text, const HTEQPlatform& platform, const std::string& file) {
    if (platform.isZdf()) showIdentity(text, platform, file);
    if (platform.hasReconfigurablePartitions()) {
        showPartitions(text, platform);
    } else {
        if (platform.getHardwarePlatform()) showHardware(text, *platform.getHardwarePlatform(), "hardware");
        if (platform.hasHWEmulationPlatform())
            showHardware(text, *platform.getHardwareEmulationPlatform(), "emulation");
    }
    if (platform.getSoftwarePlatform()) showSoftware(text, *platform.getSoftwarePlatform());
}

std::string summaryOf(const HTEQPlatform& platform) {
    const std::string name = platform.getName().empty() ? platform.getPlatformBaseName() : platform.getName();
    const std::string vendor = platform.getVendor().empty() ? "" : " by " + platform.getVendor();
    const HTEQHardwarePlatform* const hardware = platform.getHardwarePlatform();
    if (!hardware) return name.empty() ? "software only" : name + ": software only";
    return name + ": " + platform.getTypePrettyString() + " platform" + vendor + summaryOf(*hardware);
}

/// Shows a file that a descriptor names, loaded on its own, or why it cannot be read. Many partitions may name one file:
/// `failed` keeps the reason. The first failure is that of the whole platform, which is reported already.
Exit showPart(Text& text, const std::string& what, const std::string& file, const Call& call,
              std::map<std::string, Failure>& failed) {
    if (file.empty()) return Exit::done;
    const bool isFirst = failed.empty();
    auto known = failed.find(file);
    if (known == failed.end()) {
        Failure failure;
        if (const auto part = tryLoad(file, call, failure)) {
            showAll(text, *part, file);
            return Exit::done;
        }
        known = failed.emplace(file, failure).first;
    }
    const Failure& failure = known->second;
    text.heading(what, HSTStringUtils::toLower(what));
    text.note("cannot be read: " + failure.diagnostic.report("error"));
    if (!isFirst) Console::take().report(failure);
    return exitOf(failure);
}

/// Shows what can be read of a descriptor whose platform does not load as a whole.
Exit showParts(Text& text, const std::string& file, const Call& call) {
    HTEQPlatform platform;
    platform.setZdf(true);
    HTEQPlatformXMLReader(file, &platform).readFile();
    showIdentity(text, platform, file);
    Exit exit = Exit::done;
    std::map<std::string, Failure> failed;
    const auto show = [&](const char* what, const std::string& part) {
        exit = worse(exit, showPart(text, what, requests::shownPath(part, file), call, failed));
    };
    show("Hardware", platform.getHardwarePlatformFile());
    show("Emulation", platform.getHardwareEmuPlatformFile());
    for (const HTEQReconfigurablePartition* partition : platform.getReconfigurablePartitions()) {
        show("Partition", partition->getHardwarePlatformFile());
        show("Partition, emulation", partition->getHardwareEmulationPlatformFile());
    }
    show("Software", platform.getSoftwarePlatformFile());
    return exit;
}

}  // namespace

int runShow(const Call& call) {
    const std::string file = platformFile(call["FILE"], call);
    Text text(Records::areAsked(call));
    Failure failure;
    Exit exit = Exit::done;
    std::string summary;
    if (const auto platform = tryLoad(file, call, failure, true)) {
        summary = summaryOf(*platform);
        showAll(text, *platform, file);
    } else if (fileKindOf(file) == FileKind::descriptor && failure.kind != FailureKind::noSuchFile &&
               failure.diagnostic.id != "74-9") {
        Console::take().report(failure);
        exit = worse(exitOf(failure), showParts(text, file, call));
    } else {
        Console::take().report(failure);
        return static_cast<int>(exitOf(failure));
    }
    if (!Records::areAsked(call)) return Console::take().data(text.str(summary)), static_cast<int>(exit);
    Records records("platform-description");
    records.add(text.takeRecord(summary));
    records.print(call, {});
    return static_cast<int>(exit);
}
