#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Output.h"

int runPack(const Call& call) {
    const bool isForced = call.has("force");
    boost::json::array warnings;
    writeTo(call["ARCHIVE"], isForced, "lfa", [&](const std::string& path, bool mayReplace) {
        for (const HEXDiagnostic& warning : teq_platform::requests::pack({.folder = call["DIR"],
                                            .archive = path,
                                            .mayReplace = mayReplace,
                                            .mayLack = isForced,
                                            .exclude = call.values("exclude")})) {
            warnings.emplace_back(warning.format());
            Console::take().print(warning, "warning");
        }
    });
    Console::take().takeFaults();  // which the warnings name in the folder
    if (call["ARCHIVE"] != "-")
        Records::printOne(call, "packed-archive",
                          {{"folder", call["DIR"]}, {"archive", call["ARCHIVE"]}, {"warnings", std::move(warnings)}});
    return 0;
}
