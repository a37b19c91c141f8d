#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Load.h"

namespace {

boost::json::array listOf(const HSTVector<std::string>& lines) {
    return boost::json::array(lines.begin(), lines.end());
}

}  // namespace

int runSetFile(const Call& call) {
    const bool isDry = call.has("dry-run");
    const auto result = teq_platform::requests::setFile({.archive = call["ARCHIVE"],
                                                         .type = call["TYPE"],
                                                         .member = call["MEMBER"],
                                                         .source = call["SOURCE"],
                                                         .mode = modeOf(call),
                                                         .mayLose = call.has("force"),
                                                         .mayTake = call.has("force"),
                                                         .stripPaths = call.has("strip-paths"),
                                                         .dryRun = isDry});
    Console& console = Console::take();
    if (Records::areAsked(call)) {
        Records records("set-file");
        records.add({{"archive", call["ARCHIVE"]},
                     {"written", !isDry && !result.isRefused},
                     {"refused", result.isRefused},
                     {"changes", listOf(result.changes)},
                     {"losses", listOf(result.losses)}});
        records.print(call, {});
    } else {
        for (const std::string& loss : result.losses) console.print({.file = call["ARCHIVE"], .text = loss}, "");
        if (isDry)
            for (const std::string& change : result.changes) console.data(change + "\n");
    }
    if (!result.isRefused) return 0;
    console.note("nothing was written; use --force to write anyway");
    return static_cast<int>(Exit::no);
}
