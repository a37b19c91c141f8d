#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Output.h"

int runPack(const Call& call) {
    const bool isForced = call.has("force");
    writeTo(call["ARCHIVE"], isForced, "lfa", [&](const std::string& path, bool mayReplace) {
        teq_platform::requests::pack(
            {.folder = call["DIR"], .archive = path, .mayReplace = mayReplace, .mayLack = isForced});
    });
    return 0;
}
