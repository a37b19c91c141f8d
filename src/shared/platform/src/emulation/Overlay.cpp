// What the build leaves in the overlay directory becomes part of the archive.
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

#include "emulation/Generator.h"
#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"
#include "util/Descriptor.h"
#include "util/FolderNames.h"
#include "util/HUTFile.h"
#include "util/OpenBelow.h"
#include "zip/ArchiveEdit.h"
#include "zip/LateFile.h"
#include "zip/MemberName.h"

namespace emulation {
namespace {

[[noreturn]] void refuse(const std::string& path, const std::string& text) {
    throw HEXUserException("'" + path + "' cannot be put into an archive: " + text);
}

/// An open directory. What is in it is opened by names below it, without following links.
class Folder {
public:
    explicit Folder(std::string path)
        : path_(std::move(path)), opened_(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)) {
        if (!opened_.isOpen()) refuse(path_, std::generic_category().message(errno));
    }

    HSTVector<std::string> files() const {
        HSTVector<std::string> files, folders{""};
        while (!folders.empty()) {
            const std::string inside = std::exchange(folders.back(), {});
            folders.pop_back();
            const std::string at = inside.empty() ? "" : inside + "/";
            const util::Descriptor folder = util::openBelow(opened_.get(), inside, O_RDONLY | O_DIRECTORY);
            if (!folder.isOpen()) refuse(path_ + "/" + inside, std::generic_category().message(errno));
            for (const std::string& name : folderNames(folder.get(), path_ + "/" + inside))
                (isFolder(folder.get(), name, path_ + "/" + at + name) ? folders : files).push_back(at + name);
        }
        std::sort(files.begin(), files.end());
        return files;
    }

    zip::SourceFile file(const std::string& name) const { return {opened_.get(), name, path_ + "/" + name}; }

private:
    static bool isFolder(int folder, const std::string& name, const std::string& path) {
        struct stat status {};
        if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            refuse(path, std::generic_category().message(errno));
        if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) refuse(path, "it is neither a file nor a folder");
        return S_ISDIR(status.st_mode);
    }

    std::string path_;
    util::Descriptor opened_;
};

}  // namespace

HSTVector<std::string> filesBelow(const std::string& directory) { return Folder(directory).files(); }

void mergeOverlay(const std::string& platformFile, const std::string& overlay) {
    const auto folder = std::make_shared<const Folder>(overlay);
    const std::string prefix = HUTFile::getCanonicalName(overlay);
    const std::string name = prefix.substr(prefix.rfind('/') + 1) + "/";
    zip::ArchiveEdit edit(platformFile);
    for (const std::string& file : folder->files()) {
        if (const auto fault = zip::memberNameFault(file, false); !fault.empty())
            refuse(overlay + "/" + HSTStringUtils::printable(file), "the name " + std::string(fault));
        edit.put(file, std::make_unique<zip::LateFile>([folder, file] { return folder->file(file); }));
        edit.remove(name + file);
    }
    edit.commit(zip::ArchiveEdit::Digest::attach);
}

}  // namespace emulation
