#include "util/MadeDirectory.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "msg/HEXAll.h"
#include "util/FolderNames.h"
#include "util/RemoveTree.h"
#include "util/SystemFault.h"

namespace util {
namespace {

std::optional<DirectoryStamp> stampOf(const struct stat& status) {
    const bool isPrivate = S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() && (status.st_mode & 0777) == 0700;
    return isPrivate ? std::optional(DirectoryStamp{status.st_dev, status.st_ino}) : std::nullopt;
}

}  // namespace

std::optional<DirectoryStamp> DirectoryStamp::of(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 ? stampOf(status) : std::nullopt;
}

std::optional<DirectoryStamp> DirectoryStamp::of(int directory) {
    struct stat status {};
    return ::fstat(directory, &status) == 0 ? stampOf(status) : std::nullopt;
}

void failToMake(const std::string& directory, int error) {
    noteSystemFault(directory, error, "made");
    throw HEXUserException("temporary directory '" + directory +
                           "' could not be made: " + std::generic_category().message(error));
}

MadeDirectory::MadeDirectory(std::string form) : path_(std::move(form)) {
    if (!::mkdtemp(path_.data())) failToMake(path_, errno);
    try {
        open();
    } catch (const HEXUserException&) {
        ::rmdir(path_.c_str());
        throw;
    }
}

void MadeDirectory::open() {
    opened_ = Descriptor(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!opened_.isOpen()) failToMake(path_, errno);
    stamp_ = DirectoryStamp::of(opened_.get());
    // Another one may already have taken the name, perhaps one of this user with files that matter.
    if (!stamp_ || !folderNames(opened_.get(), path_, 1).empty()) failToMake(path_, EPERM);
}

MadeDirectory::~MadeDirectory() {
    removeContents(std::move(opened_));
    ::rmdir(path_.c_str());  // nothing that has files
}

const std::string& MadeDirectory::path() const {
    if (DirectoryStamp::of(path_) != stamp_)
        throw HEXUserException("temporary directory '" + path_ + "' has been removed or replaced");
    return path_;
}

}  // namespace util
