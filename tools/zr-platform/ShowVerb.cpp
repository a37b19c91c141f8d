#include <platform/HPLPlatform.h>
#include <platform/HTEQPlatformXMLReader.h>
#include <platform/HTEQReconfigurablePartition.h>
#include <util/HUTFile.h>

#include "Console.h"
#include "Load.h"
#include "ShowHardware.h"
#include "Text.h"

namespace {

void showIdentity(Text& text, const HTEQPlatform& platform) {
    text.heading("Platform " + (platform.getName().empty() ? platform.getPlatformBaseName() : platform.getName()));
    text.line("vendor", platform.getVendor());
    text.line("library", platform.getLibrary());
    text.line("version", platform.getVersion());
    text.line("description", platform.getDescription());
    text.line("type", platform.getTypePrettyString());
    text.line("file", platform.getPlatformFile());
    text.line("hardware file", platform.getHardwarePlatformFile());
    text.line("emulation file", platform.getHardwareEmuPlatformFile());
    text.line("software file", platform.getSoftwarePlatformFile());
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

void showAll(Text& text, const HTEQPlatform& platform) {
    if (platform.isZdf()) showIdentity(text, platform);
    if (platform.hasReconfigurablePartitions()) {
        showPartitions(text, platform);
    } else {
        if (platform.getHardwarePlatform()) showHardware(text, *platform.getHardwarePlatform(), "hardware");
        if (platform.hasHWEmulationPlatform())
            showHardware(text, *platform.getHardwareEmulationPlatform(), "emulation");
    }
    if (platform.getSoftwarePlatform()) showSoftware(text, *platform.getSoftwarePlatform());
}

/// A file that a descriptor names, loaded on its own: what it holds, or why it cannot be read.
Exit showPart(Text& text, const std::string& what, const std::string& file, const Call& call) {
    if (file.empty()) return Exit::done;
    Problem problem;
    if (!HUTFile::exists(file)) {
        problem = Problem::of(Exit::input, file, "no such file");
    } else if (const auto part = tryLoad(file, call, problem)) {
        showAll(text, *part);
        return Exit::done;
    }
    text.heading(what);
    text.note("not to be read: " + problem.line_());
    Console::take().problem(problem);
    return problem.exit;
}

/// What can be read of a descriptor whose platform does not load as a whole.
Exit showParts(Text& text, const std::string& file, const Call& call) {
    HTEQPlatform platform;
    platform.setZdf(true);
    if (!HTEQPlatformXMLReader(file, &platform).parseFile()) return Exit::input;
    showIdentity(text, platform);
    Exit exit = Exit::done;
    const auto show = [&](const char* what, const std::string& part) {
        exit = worse(exit, showPart(text, what, part, call));
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

bool isDescriptor(const std::string& file) {
    return !file.ends_with(".lfa") && !file.ends_with(".cfa") && !file.ends_with(".spfm");
}

}  // namespace

int runShow(const Call& call) {
    const std::string& file = call["FILE"];
    Text text;
    Problem problem;
    Exit exit = Exit::done;
    if (const auto platform = tryLoad(file, call, problem)) {
        showAll(text, *platform);
    } else if (isDescriptor(file) && HUTFile::exists(file) && problem.id != "74-9") {
        exit = showParts(text, file, call);
    } else {
        throw problem;
    }
    Console::take().data(text.str());
    return static_cast<int>(exit);
}
