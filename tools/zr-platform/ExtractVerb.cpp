#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Load.h"
#include "Output.h"

int runExtract(const Call& call) {
    writeTo(call["DEST"], call.has("force"), "", [&call](const std::string& path, bool mayReplace) {
        teq_platform::requests::extract({.archive = call["ARCHIVE"],
                                         .name = call["MEMBER"],
                                         .destination = path,
                                         .mode = modeOf(call),
                                         .isType = call.has("type"),
                                         .repairHpfm = call.has("repair-hpfm"),
                                         .mayReplace = mayReplace});
    });
    if (call["DEST"] != "-")
        Records::printOne(call, "extracted-file",
                          {{"archive", call["ARCHIVE"]}, {"name", call["MEMBER"]}, {"destination", call["DEST"]}});
    return 0;
}
