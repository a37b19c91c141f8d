#include <fstream>
#include <sstream>

#include <msg/HEXAll.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQTmpDirObject.h>
#include <platform/JSONWriter.h>
#include <text/HSTStringUtils.h>
#include <zip/HUTZip.h>

#include "Changes.h"
#include "Console.h"
#include "Load.h"

namespace {

std::string memberText(const HPLPlatform& platform, const std::string& archive, const std::string& member) {
    const HTEQTmpDirObject scratch("set-file");
    const std::string copy = scratch.get() + "/metadata.json";
    if (!platform.extract(member, archive, copy)) {
        Problem problem = Problem::of(Exit::input, archive, "the member cannot be read");
        problem.member = member;
        throw problem;
    }
    std::ostringstream text;
    text << std::ifstream(copy, std::ios::binary).rdbuf();
    return text.str();
}

/// What writing the metadata anew would change of what stands in the archive now.
std::vector<std::string> losses(const HPLPlatform& platform, const std::string& archive) {
    const std::string member = platform.getJsonFileName(), alternative = platform.getAltJsonFileName();
    if (HUTZip::containsFile(archive, alternative))
        return {"the member " + alternative + " stays as it is, and is read before " + member};
    if (!HUTZip::containsFile(archive, member))
        return {"the metadata is XML only: a new member " + member + " would be read in the place of " +
                platform.getXmlFileName()};
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(platform);
    if (!platform.writesPlatformFile()) writer.getTree().erase("platformFile");
    std::ostringstream after;
    writer.write(after);
    std::vector<std::string> found = lostOrChanged(memberText(platform, archive, member), after.str());
    if (!platform.writesPlatformFile())
        std::erase_if(found, [](const std::string& change) { return change.starts_with("platformFile: "); });
    return found;
}

}  // namespace

int runSetFile(const Call& call) {
    const std::string& archive = call["ARCHIVE"];
    const auto loadedPlatform = loaded(archive, call);
    auto* platform = dynamic_cast<HPLPlatform*>(loadedPlatform->getHardwarePlatform());
    if (!platform) throw Problem::of(Exit::input, archive, "this is no hardware archive");
    platform->setWritesPlatformFile(!call.has("strip-paths"));
    const std::vector<std::string> lost = losses(*platform, archive);
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
