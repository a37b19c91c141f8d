#include "platform/PlatformPacker.h"

#include <memory>
#include <set>
#include <vector>

#include "archive/Request.h"
#include "loading/LoadFault.h"
#include "msg/Capture.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQCfaJsonReader.h"
#include "platform/HTEQCfaXmlReader.h"
#include "text/HSTStringUtils.h"
#include "zip/HUTZip.h"

namespace teq_platform {
namespace {

/// Fills the platform by the metadata member that a loader would take. Gives that member's name, "" when the archive
/// has none; `good` tells whether it can be read.
std::string readMetadata(const std::string& archive, HPLPlatform& platform, bool& good) {
    HTEQCfaJsonReader reader(&platform);
    std::string member;
    if (reader.canParse(archive, HwMetadataMode::Default, member)) {
        good = reader.parseCFA(archive, HwMetadataMode::Default);
        return member;
    }
    member = platform.getXmlFileName();
    if (!archive::open(archive)->contains(member)) return "";
    good = HTEQCfaXmlReader(archive, &platform).parseCFA();
    return member;
}

/// The files that a packed archive's metadata lists and the archive lacks. A folder counts when something is in it.
std::vector<std::string> missingFiles(const std::string& archive) {
    HPLPlatform platform;
    bool good = true;
    const msg::Capture said(msg::Capture::Words::print);
    const std::string member = readMetadata(archive, platform, good);
    if (!good) {
        FileProblem problem = loading::readFault(archive, said, "the metadata is empty");
        problem.member = member;
        throw HEXFileFault(problem);
    }
    std::set<std::string> names;
    for (const HUTZip::Member& packed : HUTZip::members(archive)) names.insert(packed.name);
    std::vector<std::string> missing;
    const std::unique_ptr<HSTFwdIter<HPLFile*>> files(platform.createFileVecIter());
    while (files->hasNext()) {
        const std::string& name = files->next()->getName();
        const auto inside = names.lower_bound(name + "/");
        const bool isFolder = inside != names.end() && inside->starts_with(name + "/");
        if (names.count(name) == 0 && !isFolder) missing.push_back(name);
    }
    return missing;
}

void checkComplete(const std::string& archive, const std::string& folder) {
    const archive::Request request;
    std::vector<std::string> missing;
    try {
        missing = missingFiles(archive);
    } catch (const HEXFileFault& e) {
        FileProblem problem = e.problem();
        problem.file = folder;  // the archive is not to be
        throw HEXFileFault(problem);
    }
    if (!missing.empty())
        throw HEXFileFault(
            {.file = folder,
             .text = "the metadata lists files that are not there: " + HSTStringUtils::join(missing, ", ")});
}

}  // namespace

void PlatformPacker::pack(const std::string& folder, const std::string& archive, bool overwrite, bool mayLack) {
    HUTZip::compressDir(folder, archive, overwrite, [&](const std::string& made) {
        if (!mayLack) checkComplete(made, folder);
    });
}

}  // namespace teq_platform
