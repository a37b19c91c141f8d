#include "util/AtomicFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>
#include <utility>

#include "msg/HEXAll.h"
#include "util/FileAttributes.h"
#include "util/HUTFile.h"
#include "util/SystemFault.h"
#include "util/WriteAll.h"

namespace util {
namespace {

constexpr std::uint64_t kStretch = 8UL * 1024 * 1024;
constexpr std::string_view kStem = ".zr-edit-";

bool isOurName(std::string_view name) {
    name = name.substr(0, name.find('.', kStem.size()));
    return name.starts_with(kStem) && name.find_first_not_of("0123456789-", kStem.size()) == name.npos;
}

bool isSameFile(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

/// Whether `name` still is the name of the open file.
bool isNameOf(int file, int directory, const char* name) {
    struct stat open {
    }, named{};
    return ::fstat(file, &open) == 0 && ::fstatat(directory, name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           isSameFile(open, named);
}

/// False if somebody else holds the lock, or on failure.
bool lock(int file) {
    int result = -1;
    do result = ::flock(file, LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

/// Removes a file of that name whose lock is free. One that is in use, or is not ours, stays.
void removeLeftover(int directory, const char* name) {
    const Descriptor file(::openat(directory, name, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid() || !lock(file.get()))
        return;
    if (isNameOf(file.get(), directory, name)) ::unlinkat(directory, name, 0);
}

/// The directory, opened anew to be read.
Descriptor reopened(int directory) {
    return Descriptor(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

void removeLeftovers(int directory) {
    Descriptor own = reopened(directory);
    const std::unique_ptr<DIR, int (*)(DIR*)> list(own.isOpen() ? ::fdopendir(own.get()) : nullptr, ::closedir);
    if (!list) return;
    own.release();
    while (const dirent* const entry = ::readdir(list.get()))
        if (isOurName(entry->d_name)) removeLeftover(directory, entry->d_name);
}

}  // namespace

AtomicFile::AtomicFile(std::string target, mode_t mode)
    : parent_(::open(HUTFile::getParent(target).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
      directory_(parent_.get()),
      name_(target.substr(target.rfind('/') + 1)),
      shown_(std::move(target)) {
    if (!parent_.isOpen()) fail(errno);
    constexpr std::size_t kMaxExtension =
        16;  // a longer one is part of the name, which may be as long as a name can be
    const std::string extension = HUTFile::getExt(name_);
    make(mode, extension.empty() || extension.size() > kMaxExtension ? "" : "." + extension);
}

AtomicFile::AtomicFile(int directory, std::string name, std::string shown, mode_t mode)
    : directory_(directory), name_(std::move(name)), shown_(std::move(shown)) {
    make(mode, "");
}

AtomicFile::~AtomicFile() {
    if (isMade_) ::unlinkat(directory_, temporary_.c_str(), 0);
}

void AtomicFile::fail(int error) const {
    noteSystemFault(shown_, error, "written");
    fail(std::generic_category().message(error));
}
void AtomicFile::fail(const std::string& reason) const {
    throw HEXUserException("file '" + shown_ + "' could not be written: " + reason);
}

void AtomicFile::make(mode_t mode, const std::string& extension) {
    const std::string stem = std::string(kStem) + std::to_string(::getpid()) + "-";
    for (int n = 0; !isMade_; ++n) {
        temporary_ = stem + std::to_string(n) + extension;
        file_ = Descriptor(
            ::openat(directory_, temporary_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (!file_.isOpen() && errno == EEXIST) continue;
        if (!file_.isOpen()) fail(errno);
        const bool isLocked = lock(file_.get());
        if (const int error = errno; !isLocked && error != EWOULDBLOCK) {
            ::unlinkat(directory_, temporary_.c_str(), 0);
            fail(error);
        }
        // Before it was locked, another process may have taken it for a leftover.
        isMade_ = isLocked && isNameOf(file_.get(), directory_, temporary_.c_str());
    }
}

void AtomicFile::write(std::uint64_t offset, std::string_view bytes) {
    if (const int error = writeAllAt(file_.get(), offset, bytes)) fail(error);
    offset += bytes.size();
    size_ = std::max(size_, offset);
    if (offset >= flushed_ + kStretch) {  // written while the next bytes are made, so sync waits less
        ::sync_file_range(file_.get(), static_cast<off_t>(flushed_), static_cast<off_t>(offset - flushed_),
                          SYNC_FILE_RANGE_WRITE);
        flushed_ = offset;
    }
}

std::string AtomicFile::path() const { return HUTFile::getParent(shown_) + "/" + temporary_; }

void AtomicFile::takeAttributes(int of) {
    if (const int error = copyAttributes(of, file_.get())) fail(error);
}

void AtomicFile::sync() {
    if (::fsync(file_.get()) != 0) fail(errno);
    isSynced_ = true;
}

/// Returns 0 or the error number.
int AtomicFile::rename(bool mayReplace) const {
    const char *const from = temporary_.c_str(), *const to = name_.c_str();
    if (::renameat2(directory_, from, directory_, to, mayReplace ? 0 : RENAME_NOREPLACE) == 0) return 0;
    if (mayReplace || (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP)) return errno;
    // The file system cannot do both at once.
    if (::linkat(directory_, from, directory_, to, 0) != 0) return errno;
    ::unlinkat(directory_, from, 0);
    return 0;
}

/// Swaps the new file and the one at the target.
bool AtomicFile::exchange() const {
    return ::renameat2(directory_, temporary_.c_str(), directory_, name_.c_str(), RENAME_EXCHANGE) == 0;
}

void AtomicFile::close() {
    if (!file_.close()) fail(errno);
}

void AtomicFile::checkTarget(bool mayReplace) const {
    struct stat there {};
    if (mayReplace && ::fstatat(directory_, name_.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
        !S_ISREG(there.st_mode) && !S_ISLNK(there.st_mode))
        fail("what has this name is not a regular file");
}

void AtomicFile::commit(bool mayReplace) {
    if (!isSynced_) close();
    checkTarget(mayReplace);
    if (const int error = rename(mayReplace)) fail(error);
    isMade_ = false;
    if (!isSynced_) return;
    if (const int error = syncDirectory(directory_)) fail(error);
    removeLeftovers(directory_);
}

void AtomicFile::commitWith(AtomicFile& other, bool mayReplace) {
    close();
    checkTarget(mayReplace);
    struct stat there {};
    const bool isNew = ::fstatat(directory_, name_.c_str(), &there, AT_SYMLINK_NOFOLLOW) != 0;
    const bool isExchanged = mayReplace && !isNew && exchange();  // the old file then has the temporary name
    if (const int error = isExchanged ? 0 : rename(mayReplace)) fail(error);
    isMade_ = isExchanged;
    try {
        other.commit(mayReplace);
    } catch (...) {
        if (isExchanged) exchange();
        if (isNew) ::unlinkat(directory_, name_.c_str(), 0);
        throw;
    }
}

int syncDirectory(int directory) {
    const Descriptor file = reopened(directory);
    if (!file.isOpen() && errno == EACCES) return 0;  // one may only write to it
    return file.isOpen() && ::fsync(file.get()) == 0 ? 0 : errno;
}

}  // namespace util
