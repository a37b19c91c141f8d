#include <platform/HPLPlatform.h>
#include <platform/MetadataLosses.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"

int runSetFile(const Call& call) {
    const std::string& archive = call["ARCHIVE"];
    const auto loadedPlatform = loaded(archive, call);
    auto* platform = dynamic_cast<HPLPlatform*>(loadedPlatform->getHardwarePlatform());
    if (!platform) throw Problem::of(Exit::input, archive, "this is no hardware archive");
    platform->setWritesPlatformFile(!call.has("strip-paths"));
    const std::vector<std::string> lost = teq_platform::MetadataLosses::find(*platform, archive);
    Console& console = Console::take();
    for (const std::string& change : lost)
        console.words(HSTStringUtils::printable(std::string(archive).append(": ").append(change)));
    if (!lost.empty() && !call.has("force")) {
        console.words("nothing was written; --force writes all the same");
        return static_cast<int>(Exit::no);
    }
    if (call.has("dry-run")) return 0;
    platform->archiveFile(call["TYPE"], call["MEMBER"], call["SOURCE"]);
    return 0;
}
