#include <algorithm>
#include <memory>

#include <platform/HPLFile.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQTmpDirObject.h>
#include <platform/PlatformFileExtractor.h>
#include <text/HSTStringUtils.h>
#include <util/HUTFile.h>
#include <zip/HUTZip.h>

#include "Console.h"
#include "Load.h"
#include "Nearest.h"
#include "Output.h"

namespace {

/// What MEMBER can be called in this archive: its members, and the types of its listed files.
struct Names {
    std::vector<std::string> members;
    std::vector<std::pair<std::string, std::string>> types;  ///< type and member

    const std::string* memberOfType(const std::string& type) const {
        for (auto it = types.rbegin(); it != types.rend(); ++it)
            if (HSTStringUtils::iequals(it->first, type)) return &it->second;
        return nullptr;
    }
};

Names namesOf(const std::string& archive, const Call& call) {
    Names names;
    for (const HUTZip::Member& member : HUTZip::members(archive)) names.members.push_back(member.name);
    Problem problem;
    const auto platform = tryLoad(archive, call, problem);
    const auto* hardware = platform ? dynamic_cast<const HPLPlatform*>(platform->getHardwarePlatform()) : nullptr;
    if (!hardware) return names;
    const std::unique_ptr<HSTFwdIter<HPLFile*>> files(hardware->createFileVecIter());
    while (files->hasNext()) {
        const HPLFile* file = files->next();
        names.types.emplace_back(file->getType(), file->getName());
    }
    return names;
}

/// The member that `name` stands for: exactly that one, else the file of that type.
std::string memberFor(const std::string& name, const std::string& archive, const Call& call) {
    const bool onlyType = call.has("type");
    if (!onlyType && HUTZip::containsFile(archive, name)) return name;
    const Names names = namesOf(archive, call);
    if (const std::string* member = names.memberOfType(name)) return *member;
    std::vector<std::string> known;
    known.reserve(names.types.size());
    for (const auto& [type, member] : names.types) known.push_back(type);
    if (!onlyType) known.insert(known.end(), names.members.begin(), names.members.end());
    throw Problem::of(
        Exit::no, archive,
        std::string("no ") + (onlyType ? "" : "member or ") + "file type '" + name + "'" + nearest(name, known));
}

void copyOut(const std::string& archive, const std::string& member, const std::string& destination, bool repair) {
    HPLPlatform platform;
    if (PlatformFileExtractor(platform, repair).extract(member, archive, destination)) return;
    Problem problem = Problem::of(Exit::input, archive, "the member cannot be read");
    problem.member = member;
    throw problem;
}

}  // namespace

int runExtract(const Call& call) {
    std::string archive = call["ARCHIVE"], name = call["MEMBER"];
    if (!HUTFile::isFile(archive)) throw Problem::of(Exit::input, archive, "no such file");
    const HTEQTmpDirObject scratch("extract");
    int level = 0;
    for (std::size_t mark; (mark = name.find('!')) != std::string::npos && !HUTZip::containsFile(archive, name);) {
        const std::string outer = memberFor(name.substr(0, mark), archive, call);
        const std::string inner = scratch.get() + "/" + std::to_string(level++) + "." + HUTFile::getExt(outer);
        copyOut(archive, outer, inner, false);
        archive = inner;
        name.erase(0, mark + 1);
    }
    const std::string member = memberFor(name, archive, call);
    const bool repair = call.has("repair-hpfm");
    // Only a file that is called .hpfm is repaired.
    OutputFile output(call["DEST"], call.has("force"), repair ? "hpfm" : "");
    copyOut(archive, member, output.path(), repair);
    output.commit();
    return 0;
}
