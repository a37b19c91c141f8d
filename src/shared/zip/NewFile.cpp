#include "zip/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "msg/HEXAll.h"

namespace zip {

NewFile::NewFile(int directory, std::string name, std::string shown, mode_t mode)
    : directory_(directory), name_(std::move(name)), shown_(std::move(shown)) {
    const std::string stem = ".zr-" + std::to_string(::getpid()) + "-";
    for (int n = 0; descriptor_ < 0; ++n) {
        temporary_ = stem + std::to_string(n);
        descriptor_ =
            ::openat(directory_, temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (descriptor_ < 0 && errno != EEXIST) fail(errno);
    }
}

NewFile::~NewFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!isCommitted_) ::unlinkat(directory_, temporary_.c_str(), 0);
}

void NewFile::fail(int error) const {
    throw HEXUserException("file '" + shown_ + "' could not be written: " + std::generic_category().message(error));
}

void NewFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = ::write(descriptor_, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
}

void NewFile::commit(bool overwrite) {
    if (::close(std::exchange(descriptor_, -1)) != 0) fail(errno);
    struct stat status {};
    if (!overwrite && ::fstatat(directory_, name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) fail(EEXIST);
    if (::renameat(directory_, temporary_.c_str(), directory_, name_.c_str()) != 0) fail(errno);
    isCommitted_ = true;
}

}  // namespace zip
