#include <platform/PlatformEdit.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"

int runSetFile(const Call& call) {
    const std::string& archive = call["ARCHIVE"];
    teq_platform::PlatformEdit edit(archive, modeOf(call), call.has("strip-paths"));
    Console& console = Console::take();
    for (const std::string& change : edit.lost())
        console.words(HSTStringUtils::printable(std::string(archive).append(": ").append(change)));
    if (!edit.lost().empty() && !call.has("force")) {
        console.words("nothing was written; --force writes all the same");
        return static_cast<int>(Exit::no);
    }
    if (!call.has("dry-run")) edit.setFile(call["TYPE"], call["MEMBER"], call["SOURCE"]);
    return 0;
}
