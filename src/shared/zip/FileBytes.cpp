#include "zip/FileBytes.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "msg/SharedBudget.h"
#include "util/PrivateTmpDir.h"
#include "util/SystemFault.h"
#include "util/WriteAll.h"
#include "zip/ArchiveError.h"

namespace {

std::string reason(int error) { return std::generic_category().message(error); }

util::Descriptor openRegular(const std::string& path, int access) {
    if (path.find('\0') != std::string::npos) throw zip::ArchiveError(path, "", "the path contains NUL");
    util::Descriptor descriptor(::open(path.c_str(), access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    const bool isOpen = descriptor.isOpen() && ::fstat(descriptor.get(), &status) == 0;
    // A directory cannot be opened for writing.
    if (isOpen ? !S_ISREG(status.st_mode) : errno == EISDIR)
        throw zip::ArchiveError(path, "", "is not a regular file");
    if (!isOpen) {
        const int error = errno;
        util::noteSystemFault(path, error);
        throw zip::ArchiveError(path, "", error == ENOENT ? "no such file" : "cannot be opened: " + reason(error));
    }
    return descriptor;
}

struct stat statusOf(int descriptor) {
    struct stat status {};
    ::fstat(descriptor, &status);
    return status;
}

}  // namespace

namespace zip {

FileStamp::FileStamp(const struct stat& status)
    : device(status.st_dev), inode(status.st_ino), size(status.st_size), changed(status.st_mtim) {}

bool FileStamp::operator==(const FileStamp& other) const {
    return device == other.device && inode == other.inode && size == other.size &&
           changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
}

FileBytes::FileBytes(util::Descriptor descriptor)
    : descriptor_(std::move(descriptor)), stamp_(statusOf(descriptor_.get())) {
    SharedBudget::addFile(stamp_.device, stamp_.inode, static_cast<std::uint64_t>(stamp_.size));
}
FileBytes::FileBytes(const std::string& path) : FileBytes(openRegular(path, O_RDONLY)) {}

std::unique_ptr<FileBytes> FileBytes::openForChange(const std::string& path) {
    return std::make_unique<FileBytes>(openRegular(path, O_RDWR));
}

bool FileBytes::isAsOpened() const { return FileStamp(statusOf(descriptor_.get())) == stamp_; }

std::unique_ptr<FileBytes> FileBytes::makeTemporary() {
    const util::ScratchDirectory scratch;
    const std::string path = scratch.path() + "/nested";
    util::Descriptor descriptor(
        ::openat(scratch.descriptor(), "nested", O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!descriptor.isOpen()) throw HEXUserException("file '" + path + "' could not be made: " + reason(errno));
    return std::make_unique<FileBytes>(std::move(descriptor));
}

bool FileBytes::read(std::uint64_t offset, char* target, std::size_t count) const {
    if (offset > size() || count > size() - offset) return false;
    while (count > 0) {
        const ssize_t got = ::pread(descriptor_.get(), target, count, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) util::noteSystemFault("an archive", errno, "read");
        if (got <= 0) return false;  // truncated since it was opened, or an error of the disk
        target += got;
        offset += static_cast<std::uint64_t>(got);
        count -= static_cast<std::size_t>(got);
    }
    return true;
}

void FileBytes::append(const char* bytes, std::size_t count) {
    if (const int error = util::writeAllAt(descriptor_.get(), size(), {bytes, count}))
        throw HEXUserException("a temporary file could not be written: " + reason(error));
    stamp_.size += static_cast<off_t>(count);
}

}  // namespace zip
