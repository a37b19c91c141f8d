#include "zip/ArchiveLock.h"

#include <fmt/core.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>
#include <thread>

#include "msg/HEXAll.h"

namespace zip {
namespace {

constexpr std::chrono::milliseconds kPause{10};

bool isCurrent(const std::string& path, const FileBytes& bytes) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && FileStamp(status) == bytes.stamp();
}

}  // namespace

std::unique_ptr<FileBytes> openLocked(const std::string& path, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        auto bytes = FileBytes::openForChange(path);
        const bool isLocked = ::flock(bytes->descriptor(), LOCK_EX | LOCK_NB) == 0;
        if (!isLocked && errno != EWOULDBLOCK && errno != EINTR)
            throw HEXUserException(
                fmt::format("archive '{}' cannot be locked: {}", path, std::generic_category().message(errno)));
        // The previous holder of the lock has replaced the file.
        if (isLocked && isCurrent(path, *bytes)) return bytes;
        if (std::chrono::steady_clock::now() >= end)
            throw HEXUserException(
                fmt::format("archive '{}' is being changed by somebody else, who did not finish within {} ms", path,
                            patience.count()));
        if (!isLocked) std::this_thread::sleep_for(kPause);
    }
}

}  // namespace zip
