#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Load.h"

int runSetFile(const Call& call) {
    const auto result = teq_platform::requests::setFile({.archive = call["ARCHIVE"],
                                                         .type = call["TYPE"],
                                                         .member = call["MEMBER"],
                                                         .source = call["SOURCE"],
                                                         .mode = modeOf(call),
                                                         .mayLose = call.has("force"),
                                                         .stripPaths = call.has("strip-paths"),
                                                         .dryRun = call.has("dry-run")});
    Console& console = Console::take();
    for (const std::string& loss : result.losses)
        console.note(HEXDiagnostic{.file = call["ARCHIVE"], .text = loss}.format());
    if (!result.isRefused) return 0;
    console.note("nothing was written; use --force to write anyway");
    return static_cast<int>(Exit::no);
}
