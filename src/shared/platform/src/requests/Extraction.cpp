// Copying one file out of an archive, by the name of a member or by its type.
#include <optional>
#include <utility>

#include "archive/PlatformArchive.h"
#include "msg/HEXAll.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHpfmUtl.h"
#include "platform/HTEQTmpDirObject.h"
#include "platform/PlatformLoader.h"
#include "platform/PlatformRequests.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"
#include "zip/Request.h"

namespace teq_platform::requests {
namespace {

using archive::PlatformArchive;

struct Listed {
    std::string type, member;
};

/// The files that the metadata lists; none when it cannot be read.
std::vector<Listed> listedFiles(const std::string& archive, HwMetadataMode mode) {
    std::vector<Listed> listed;
    try {
        const auto platform = PlatformLoader::open(archive, mode);
        const auto* hardware = dynamic_cast<const HPLPlatform*>(platform->getHardwarePlatform());
        if (!hardware) return listed;
        const std::unique_ptr<HSTFwdIter<HPLFile*>> files(hardware->createFileVecIter());
        while (files->hasNext()) {
            const HPLFile* file = files->next();
            listed.push_back({file->getType(), file->getName()});
        }
    } catch (const HEXAll&) {  // members can still be named
    }
    return listed;
}

[[noreturn]] void refuse(const PlatformArchive& archive, const std::string& name, bool isType,
                         const std::vector<Listed>& listed) {
    HSTVector<std::string> known;
    for (const Listed& file : listed) known.push_back(file.type);
    if (!isType)
        for (archive::MemberInfo& member : archive.source().files()) known.push_back(std::move(member.name));
    throw RequestError(FailureKind::unknownName,
                       {.file = archive.name(), .text = std::string("no ") + (isType ? "" : "member or ") +
                                                        "file type '" + name + "'" + nearest(name, known)});
}

/// The member that `name` stands for: exactly that one, else the last file of that type.
std::string memberFor(const PlatformArchive& archive, const std::string& name, const Extract& request) {
    if (!request.isType && archive.contains(name)) return name;
    const std::vector<Listed> listed = listedFiles(archive.name(), request.mode);
    for (auto file = listed.rbegin(); file != listed.rend(); ++file)
        if (HSTStringUtils::iequals(file->type, name)) return file->member;
    refuse(archive, name, request.isType, listed);
}

void copy(const PlatformArchive& archive, const std::string& member, const std::string& destination,
          bool mayReplace) {
    if (!archive.copy(member, destination, mayReplace))
        throw HEXFileFault({.file = archive.name(), .member = member, .text = "there is no such member"});
}

}  // namespace

void extract(const Extract& request) {
    if (!HUTFile::isFile(request.archive)) throw HEXFileNotFoundException(request.archive);
    checkDestination(request.destination, request.mayReplace);
    const zip::Request opened;
    const HTEQTmpDirObject scratch("extract");
    std::optional<PlatformArchive> archive(request.archive);
    std::string name = request.name;
    int level = 0;
    for (std::size_t mark; (mark = name.find('!')) != std::string::npos && !archive->contains(name);) {
        const std::string outer = memberFor(*archive, name.substr(0, mark), request);
        const std::string inner = scratch.get() + "/" + std::to_string(level++) + "." + HUTFile::getExt(outer);
        copy(*archive, outer, inner, false);
        archive.emplace(inner);
        name.erase(0, mark + 1);
    }
    const std::string member = memberFor(*archive, name, request);
    if (!request.repairHpfm) return copy(*archive, member, request.destination, request.mayReplace);
    const std::string hpfm = scratch.get() + "/repaired.hpfm";
    copy(*archive, member, hpfm, false);
    HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(hpfm);
    writeFile(request.destination, wholefile::read(hpfm, zip::OutputBudget::kOfCall), request.mayReplace);
}

}  // namespace teq_platform::requests
