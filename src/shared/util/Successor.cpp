#include "util/Successor.h"

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
#include "util/HUTFile.h"

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
void removeStray(int directory, const char* name) {
    const Descriptor file(::openat(directory, name, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid() || !lock(file.get()))
        return;
    if (isNameOf(file.get(), directory, name)) ::unlinkat(directory, name, 0);
}

void removeStrays(int directory) {
    Descriptor own(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> list(own.isOpen() ? ::fdopendir(own.get()) : nullptr, ::closedir);
    if (!list) return;
    own.release();
    while (const dirent* const entry = ::readdir(list.get()))
        if (isOurName(entry->d_name)) removeStray(directory, entry->d_name);
}

}  // namespace

Successor::Successor(std::string target, mode_t mode)
    : target_(std::move(target)),
      directory_(::open(HUTFile::getParent(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!directory_.isOpen()) fail(errno);
    make(mode);
}

Successor::~Successor() {
    if (isMade_) ::unlinkat(directory_.get(), name_.c_str(), 0);
}

void Successor::fail(int error) const {
    throw HEXUserException("file '" + target_ + "' could not be written: " + std::generic_category().message(error));
}

void Successor::make(mode_t mode) {
    const std::string stem = std::string(kStem) + std::to_string(::getpid()) + "-";
    const std::string extension = HUTFile::getExt(target_);
    for (int n = 0; !isMade_; ++n) {
        name_ = stem + std::to_string(n) + (extension.empty() ? "" : "." + extension);
        file_ = Descriptor(
            ::openat(directory_.get(), name_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (!file_.isOpen() && errno == EEXIST) continue;
        if (!file_.isOpen()) fail(errno);
        const bool isLocked = lock(file_.get());
        if (const int error = errno; !isLocked && error != EWOULDBLOCK) {
            ::unlinkat(directory_.get(), name_.c_str(), 0);
            fail(error);
        }
        // Before it was locked, another process may have taken it for a leftover.
        isMade_ = isLocked && isNameOf(file_.get(), directory_.get(), name_.c_str());
    }
}

void Successor::write(std::uint64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = ::pwrite(file_.get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(put));
        offset += static_cast<std::uint64_t>(put);
    }
    if (offset >= begun_ + kStretch) {  // the disk writes while the next bytes are made, so sync does not wait long
        ::sync_file_range(file_.get(), static_cast<off_t>(begun_), static_cast<off_t>(offset - begun_),
                          SYNC_FILE_RANGE_WRITE);
        begun_ = offset;
    }
}

std::string Successor::path() const { return HUTFile::getParent(target_) + "/" + name_; }

void Successor::takeModeAndOwner(const struct stat& of) {
    const bool isGiven = ::fchown(file_.get(), of.st_uid, of.st_gid) == 0 ||
                         (::fchown(file_.get(), static_cast<uid_t>(-1), of.st_gid) == 0 && of.st_uid == ::geteuid());
    // Only the old owner could grant set-user-ID rights.
    if (::fchmod(file_.get(), of.st_mode & (isGiven ? 07777 : 0777)) != 0) fail(errno);
}

void Successor::sync() {
    if (::fsync(file_.get()) != 0) fail(errno);
}

void Successor::takePlace(bool mayReplace) {
    const std::string name = target_.substr(target_.rfind('/') + 1);
    const unsigned flags = mayReplace ? 0 : RENAME_NOREPLACE;
    if (::renameat2(directory_.get(), name_.c_str(), directory_.get(), name.c_str(), flags) != 0) fail(errno);
    isMade_ = false;
    if (::fsync(directory_.get()) != 0) fail(errno);
    removeStrays(directory_.get());
}

}  // namespace util
