#include <platform/PlatformPacker.h>
#include <util/HUTFile.h>

#include "Console.h"
#include "Output.h"

int runPack(const Call& call) {
    const std::string& directory = call["DIR"];
    if (!HUTFile::isDir(directory)) throw Problem::of(Exit::input, directory, "no such folder");
    const bool isForced = call.has("force");
    const auto packTo = [&](const std::string& archive) {
        teq_platform::PlatformPacker::pack(directory, archive, isForced, isForced);
    };
    if (call["ARCHIVE"] == "-") {
        OutputFile output("-", false);
        packTo(output.path());
        output.commit();
    } else {
        checkDestination(call["ARCHIVE"], isForced);
        packTo(call["ARCHIVE"]);
    }
    return 0;
}
