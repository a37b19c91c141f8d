#include "util/WholeFile.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "msg/HEXAll.h"
#include "util/HUTFile.h"

namespace wholefile {

namespace {

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    operator int() const { return number_; }  // NOLINT(google-explicit-constructor): stands for the number in calls

private:
    int number_;
};

[[noreturn]] void fail(const std::string& path, const char* action) {
    const std::string reason = std::generic_category().message(errno);
    throw HEXUserException(fmt::format("file '{}' cannot be {}: {}", path, action, reason));
}

/// Its name while it is being written; removed unless `keep` is called.
class NewFile {
public:
    explicit NewFile(const std::string& target)
        : name_(target + ".XXXXXX"), file_(::mkostemp(name_.data(), O_CLOEXEC)) {
        if (file_ < 0) fail(target, "written");
    }
    ~NewFile() {
        if (!kept_) ::unlink(name_.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    int file() const { return file_; }
    const std::string& name() const { return name_; }
    void keep() { kept_ = true; }

private:
    std::string name_;
    Descriptor file_;
    bool kept_ = false;
};

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(file, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

bool takeModeOf(const std::string& path, int file) {
    struct stat old {};
    if (::stat(path.c_str(), &old) != 0) return ::fchmod(file, 0644) == 0;
    if (::fchown(file, old.st_uid, old.st_gid) != 0) errno = 0;  // only root may give files away
    return ::fchmod(file, old.st_mode & 07777) == 0;
}

}  // namespace

std::string read(const std::string& path, std::size_t most) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat what {};
    if (file < 0 || ::fstat(file, &what) != 0) fail(path, "read");
    if (!S_ISREG(what.st_mode)) throw HEXUserException(fmt::format("'{}' is no regular file", path));
    std::string bytes;
    char block[64 * 1024];
    for (;;) {
        const ssize_t n = ::read(file, block, sizeof block);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) fail(path, "read");
        if (n == 0) return bytes;
        bytes.append(block, static_cast<std::size_t>(n));
        if (bytes.size() > most) throw HEXUserException(fmt::format("file '{}' is larger than {} bytes", path, most));
    }
}

void replace(const std::string& path, std::string_view bytes) {
    const std::string target = HUTFile::getCanonicalName(path);
    const Descriptor directory(::open(HUTFile::getParent(target).c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY));
    if (directory < 0) fail(path, "written");
    NewFile made(target);
    if (!writeAll(made.file(), bytes) || !takeModeOf(target, made.file()) || ::fsync(made.file()) != 0 ||
        ::rename(made.name().c_str(), target.c_str()) != 0)
        fail(path, "written");
    made.keep();
    if (::fsync(directory) != 0) fail(path, "synced");
}

}  // namespace wholefile
