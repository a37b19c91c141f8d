#include "zip/ArchiveLock.h"

#include <fmt/core.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>
#include <thread>

#include "msg/HEXAll.h"
#include "zip/Request.h"

namespace zip {
namespace {

constexpr std::chrono::milliseconds kPause{10};

bool isCurrent(const std::string& path, const FileBytes& bytes) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && FileStamp(status) == bytes.stamp();
}

}  // namespace

LockedArchive::LockedArchive(const std::string& path, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        archive_ = openSharedForChange(path);
        const bool isLocked = lock(path);
        // The previous holder of the lock may have replaced the file.
        if (isLocked && isCurrent(path, file())) return;
        if (isLocked) ::flock(file().descriptor(), LOCK_UN);
        if (std::chrono::steady_clock::now() >= end)
            throw HEXUserException(
                fmt::format("archive '{}' is being changed by another process, which did not finish within {} ms",
                            path, patience.count()));
        if (!isLocked) std::this_thread::sleep_for(kPause);
    }
}

LockedArchive::~LockedArchive() { ::flock(file().descriptor(), LOCK_UN); }

bool LockedArchive::lock(const std::string& path) const {
    if (::flock(file().descriptor(), LOCK_EX | LOCK_NB) == 0) return true;
    if (errno == EWOULDBLOCK || errno == EINTR) return false;
    throw HEXUserException(
        fmt::format("archive '{}' cannot be locked: {}", path, std::generic_category().message(errno)));
}

const FileBytes& LockedArchive::file() const { return static_cast<const FileBytes&>(archive_->bytes()); }

}  // namespace zip
