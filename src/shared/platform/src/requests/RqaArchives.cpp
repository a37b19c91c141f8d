// Metadata archives.
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <memory>
#include <system_error>
#include <utility>

#include "json/JsonKeys.h"
#include "json/JsonText.h"
#include "platform/DerivedFiles.h"
#include "platform/HRQAArchive.h"
#include "requests/Inputs.h"
#include "text/HSTStringUtils.h"
#include "util/Descriptor.h"
#include "util/FolderNames.h"
#include "util/HUTFile.h"
#include "util/OpenBelow.h"
#include "zip/HUTZip.h"
#include "zip/MemberName.h"
#include "zip/Request.h"

namespace teq_platform::requests {
namespace {

/// The files of a folder as sources without a type. The folder is opened once, and everything in it by names below
/// that, without following links.
class SourceFolder {
public:
    SourceFolder(const NamedFile& file, HSTVector<HRQAArchive::Source>& sources)
        : path_(file.source),
          member_(file.member),
          opened_(
              std::make_shared<const util::Descriptor>(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))),
          sources_(sources) {
        if (!opened_->isOpen()) refuse(path_, std::generic_category().message(errno));
    }

    void collect() {
        std::vector<std::string> folders{""};
        while (!folders.empty()) {
            const std::string inside = std::exchange(folders.back(), {});
            folders.pop_back();
            const util::Descriptor folder = util::openBelow(opened_->get(), inside, O_RDONLY | O_DIRECTORY);
            if (!folder.isOpen()) refuse(path_ + "/" + inside, std::generic_category().message(errno));
            std::vector<std::string> names = folderNames(folder.get(), path_ + "/" + inside);
            std::ranges::sort(names);
            for (const std::string& name : names)
                add(folder.get(), name, inside.empty() ? name : inside + "/" + name, folders);
        }
    }

private:
    [[noreturn]] static void refuse(const std::string& path, const std::string& text) {
        throw HEXUserException("'" + path + "' cannot be packed: " + text);
    }

    void add(int folder, const std::string& name, const std::string& inside, std::vector<std::string>& folders) {
        const std::string path = path_ + "/" + inside;
        if (const auto fault = zip::digestNameFault(member_ + "/" + inside, false); !fault.empty())
            throw RequestError(FailureKind::badInput,
                               {.text = "'" + path + "' cannot be packed: its name " + std::string(fault)});
        struct stat status {};
        if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
            !(S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)))
            refuse(path, "it is neither a file nor a folder");
        if (S_ISDIR(status.st_mode))
            folders.push_back(inside);
        else
            sources_.push_back({"", member_ + "/" + inside, path, opened_, inside});
    }

    const std::string &path_, &member_;
    std::shared_ptr<const util::Descriptor> opened_;
    HSTVector<HRQAArchive::Source>& sources_;
};

/// What the files become in the archive. The type of a folder is registered at once.
HSTVector<HRQAArchive::Source> sourcesOf(const HSTVector<NamedFile>& files, HRQAArchive& archive) {
    HSTVector<HRQAArchive::Source> sources;
    for (const NamedFile& file : files) {
        if (!HUTFile::isDir(file.source)) {
            sources.push_back({file.type, file.member, file.source});
            continue;
        }
        SourceFolder(file, sources).collect();
        archive.registerFile(file.type, file.member);
    }
    return sources;
}

HSTVector<std::string> inputsOf(const RqaArchive& request) {
    HSTVector<std::string> inputs;
    for (const NamedFile& file : request.files) inputs.push_back(file.source);
    return inputs;
}

/// The index of an archive as a tree, and its members.
struct Opened {
    std::shared_ptr<const zip::Archive> archive;
    json::ptree index;
};

Opened open(const std::string& archive) {
    checkInput(archive);
    Opened opened{zip::openShared(archive), {}};
    const std::string& name = HRQAArchive::getJsonFileName();
    const zip::Member* const member = opened.archive->find(name);
    if (!member)
        throw HEXFileFault({.file = archive, .text = "no member " + name + ": it is not a metadata archive"});
    json::parse(opened.archive->read(*member), archive + "!" + name, {.file = archive, .member = name}, opened.index);
    return opened;
}

/// The folders of an archive, found by the names of its members.
class Folders {
public:
    explicit Folders(const zip::Archive& archive) {
        for (const zip::Member& member : archive.members()) names_.emplace_back(member.name);
        std::ranges::sort(names_);
    }
    bool contains(const std::string& name) const {
        const auto at = std::ranges::lower_bound(names_, name + "/");
        return at != names_.end() && at->starts_with(name + "/");
    }

private:
    std::vector<std::string> names_;
};

ListedFile listed(const zip::Archive& archive, const Folders& folders, const std::string& type,
                  const std::string& name) {
    using State = ListedFile::State;
    if (const zip::Member* const member = archive.find(name)) return {type, name, State::file, member->size};
    return {type, name, folders.contains(name) ? State::folder : State::missing};
}

/// What is wrong with the entries of the list "files".
HSTVector<std::string> problemsIn(const json::ptree& index) {
    HSTVector<std::string> problems;
    const auto list = index.find("files");
    if (list == index.not_found()) return problems;
    std::map<std::string, int> types;
    std::size_t number = 0;
    for (const auto& [none, file] : list->second) {
        const std::string& type = json::textAt(file, "type");
        const std::string& name = json::textAt(file, "name");
        if (problems.size() >= kMaxLines) break;
        const std::string place = "files[" + std::to_string(number++) + "]: ";
        if (type.empty() || name.empty())
            problems.push_back(place + "type or name is missing; the entry is ignored");
        else if (const auto fault = zip::memberNameFault(name, false); !fault.empty())
            problems.push_back(place + "the name '" + HSTStringUtils::excerpt(name) + "' " + std::string(fault));
        if (!type.empty() && types[type]++ > 0)
            problems.push_back(place + "the type '" + HSTStringUtils::excerpt(type) +
                               "' is listed again; the last entry counts");
    }
    return problems;
}

void checkNotPresent(const RqaArchive& request, const HRQAArchive& archive, const zip::Archive& members) {
    const Folders folders(members);
    for (const NamedFile& file : request.files)
        if (archive.getFiles().contains(file.type) || members.find(file.member) || folders.contains(file.member))
            throw RequestError(FailureKind::exists,
                               {.file = request.archive,
                                .text = "already has the type '" + HSTStringUtils::excerpt(file.type) +
                                        "' or the member '" + HSTStringUtils::excerpt(file.member) + "'"});
}

}  // namespace

void createRqa(const RqaArchive& request) {
    checkFiles(request.files, HRQAArchive::getJsonFileName());
    checkOutput(request.archive, {}, request.mayReplace, inputsOf(request));
    HRQAArchive archive(request.archive);
    archive.setInstPath(request.instPath);
    archive.setDrBdInstName(request.drBdInstName);
    archive.setPfmName(request.pfmName);
    archive.setHierName(request.hierName);
    const auto sources = sourcesOf(request.files, archive);
    if (!request.dryRun) archive.create(sources, request.mayReplace);
}

void addToRqa(const RqaArchive& request) {
    checkFiles(request.files, HRQAArchive::getJsonFileName());
    const zip::Request scope;
    if (!request.dryRun) openForChange(request.archive);
    const Opened opened = open(request.archive);
    checkOutput(request.archive, {}, true, inputsOf(request));
    HRQAArchive archive(request.archive);
    archive.parseRoot(opened.index);
    if (!request.mayReplace) checkNotPresent(request, archive, *opened.archive);
    const auto sources = sourcesOf(request.files, archive);
    if (!request.dryRun) archive.archive(sources);
}

RqaContent rqaContent(const std::string& archive) {
    const zip::Request scope;
    const Opened opened = open(archive);
    HRQAArchive read(archive);
    read.parseRoot(opened.index);
    RqaContent content{read.getInstPath(), read.getDrBdInstName(), read.getPfmName(), read.getHierName(), {}, {}};
    HRQAFiles::Map files;
    read.getFiles().getFiles(files);
    const Folders folders(*opened.archive);
    for (const auto& [type, name] : files) content.files.push_back(listed(*opened.archive, folders, type, name));
    content.problems = problemsIn(opened.index);
    return content;
}

std::string rqaIndex(const std::string& archive) {
    const zip::Request scope;
    HRQAArchive read(archive);
    read.parseRoot(open(archive).index);
    JSONObjectWriter writer;
    read.toJSON(writer);
    return writer.text();
}

std::string extractFromRqa(const std::string& archive, const std::string& type, const std::string& directory,
                           bool mayReplace) {
    const zip::Request scope;
    const Opened opened = open(archive);
    HRQAArchive read(archive);
    read.parseRoot(opened.index);
    HSTVector<std::string> types;
    read.getFiles().getTypes(types);
    if (!read.getFiles().contains(type))
        throw RequestError(FailureKind::unknownName,
                           {.file = archive, .text = "no file type '" + type + "'" + nearest(type, types)});
    const std::string name = type == "DR_BD" ? "bd" : read.getFiles().get(type);
    if (const auto fault = zip::memberNameFault(name, false); !fault.empty())
        throw HEXFileFault({.file = archive,
                            .member = HRQAArchive::getJsonFileName(),
                            .text = "the member name '" + HSTStringUtils::excerpt(name) + "' " + std::string(fault)});
    const auto state = listed(*opened.archive, Folders(*opened.archive), type, name).state;
    if (state == ListedFile::State::missing)
        throw HEXFileFault({.file = archive, .member = name, .text = "no such member, which rqa.json lists"});
    std::string path = directory + "/" + name;
    if (!mayReplace) checkFree(path);
    HUTFile::mkDirRecursive(directory);
    const bool isFolder = state == ListedFile::State::folder;  // a folder may have any type
    (isFolder ? HUTZip::uncompressDir : HUTZip::uncompress)(archive, name, directory, mayReplace);
    return path;
}

}  // namespace teq_platform::requests
