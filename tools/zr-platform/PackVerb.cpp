#include <algorithm>
#include <memory>
#include <set>

#include <platform/HPLFile.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQCfaJsonReader.h>
#include <platform/HTEQCfaXmlReader.h>
#include <text/HSTStringUtils.h>
#include <util/HUTFile.h>
#include <zip/HUTZip.h>

#include "Console.h"
#include "Output.h"

namespace {

/// Fills the platform by the metadata member that a loader would take. Gives that member's name, "" when the archive
/// has none; `good` tells whether it can be read.
std::string readMetadata(const std::string& archive, HPLPlatform& platform, bool& good) {
    HTEQCfaJsonReader reader(&platform);
    std::string member;
    if (reader.canParse(archive, HTEQCfaJsonReader::HwMetadataMode::Default, member)) {
        good = reader.parseCFA(archive, HTEQCfaJsonReader::HwMetadataMode::Default);
        return member;
    }
    member = platform.getXmlFileName();
    if (!HUTZip::containsFile(archive, member)) return "";
    good = HTEQCfaXmlReader(archive, &platform).parseCFA();
    return member;
}

/// The files that a packed archive's metadata lists and the archive lacks. A folder counts when something is in it.
/// Throws a `Problem` when the metadata cannot be read; an archive without metadata lists nothing.
std::vector<std::string> missingFiles(const std::string& archive) {
    HPLPlatform platform;
    bool good = true;
    const std::string member = readMetadata(archive, platform, good);
    if (!good) {
        const std::vector<Problem> said = Console::take().takeProblems(archive);
        Problem problem = said.empty() ? Problem() : said.front();
        if (said.empty()) problem.text = "the metadata is empty";
        problem.member = member;
        throw problem;
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

void check(const std::string& archive, const std::string& directory) {
    std::vector<std::string> missing;
    try {
        missing = missingFiles(archive);
    } catch (Problem& problem) {
        problem.file = directory;
        throw;
    }
    if (!missing.empty())
        throw Problem::of(Exit::input, directory,
                          "the metadata lists files that are not there: " + HSTStringUtils::join(missing, ", "));
}

}  // namespace

int runPack(const Call& call) {
    const std::string& directory = call["DIR"];
    if (!HUTFile::isDir(directory)) throw Problem::of(Exit::input, directory, "no such folder");
    const bool isForced = call.has("force");
    const auto packTo = [&](const std::string& archive) {
        HUTZip::compressDir(directory, archive, isForced, [&](const std::string& made) {
            if (!isForced) check(made, directory);
        });
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
