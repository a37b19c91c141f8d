#include "util/PrivateTmpDir.h"

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "msg/HEXAll.h"
#include "util/HUTFile.h"
#include "util/SystemFault.h"

namespace {

[[noreturn]] void fail(const std::string& path, int error) {
    util::noteSystemFault(path, error, "made");
    throw HEXUserException("temporary directory '" + path +
                           "' could not be made: " + std::generic_category().message(error));
}

/// Whether only this user can use what has this name, and it is a directory.
bool isPrivate(const std::string& path, struct stat& status) {
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() &&
           (status.st_mode & 0777) == 0700;
}

/// An empty directory with mode 0700 and a random name.
std::string makeIn(const std::string& place) {
    std::string path = place + "/zr_platform-XXXXXX";
    if (!::mkdtemp(path.data())) fail(path, errno);
    return path;
}

std::string makePrivateDirectory() {
    const char* const place = std::getenv("TMPDIR");
    return makeIn(HUTFile::getCanonicalName(place && *place ? place : "/tmp"));
}

struct TmpDir {
    explicit TmpDir(std::string name) : maker(::getpid()), path(std::move(name)) {
        struct stat status {};
        if (!isPrivate(path, status)) fail(path, EPERM);
        device = status.st_dev;
        inode = status.st_ino;
    }
    /// Something may remove old files while this process is running, and somebody else may take the name.
    bool isIntact() const {
        struct stat status {};
        return maker == ::getpid() && isPrivate(path, status) && status.st_dev == device && status.st_ino == inode;
    }

    pid_t maker;
    std::string path;
    dev_t device{};
    ino_t inode{};
    std::unique_ptr<TmpDir> lost;  ///< the one that this one replaces; other threads may still read its path
};

/// Owns the directory. Not guarded by a lock: a fork in one thread must not leave the child with a lock that is never
/// released.
class TmpDirOfProcess {
public:
    ~TmpDirOfProcess() {
        const std::unique_ptr<TmpDir> dir(dir_.exchange(nullptr));
        if (dir && dir->isIntact()) HUTFile::rmRecursive(dir->path);
    }
    const std::string& get() {
        TmpDir* present = dir_.load();
        while (!present || !present->isIntact()) {
            auto fresh = std::make_unique<TmpDir>(makePrivateDirectory());
            fresh->lost.reset(present);
            if (dir_.compare_exchange_strong(present, fresh.get())) return fresh.release()->path;
            (void)fresh->lost.release();
            ::rmdir(fresh->path.c_str());  // another thread was first
        }
        return present->path;
    }
    const TmpDir* made() const { return dir_.load(); }

private:
    std::atomic<TmpDir*> dir_{nullptr};
};

TmpDirOfProcess& tmpDirOfProcess() {
    static TmpDirOfProcess process;
    return process;
}

std::string pathOfThread(const std::string& base) { return base + "/" + std::to_string(::gettid()); }

std::string& hostDirectory() {
    static std::string* const present = new std::string;  // outlives every static of the host
    return *present;
}

}  // namespace

namespace util {

std::string tmpDir() {
    if (!hostDirectory().empty()) return hostDirectory();
    std::string path = pathOfThread(tmpDirOfProcess().get());
    struct stat status {};
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) fail(path, errno);
    if (!isPrivate(path, status)) fail(path, EPERM);
    return path;
}

std::optional<std::string> madeTmpDir() {
    if (!hostDirectory().empty()) return hostDirectory();
    const TmpDir* const dir = tmpDirOfProcess().made();
    if (!dir || !dir->isIntact()) return std::nullopt;
    std::string path = pathOfThread(dir->path);
    struct stat status {};
    return isPrivate(path, status) ? std::optional(std::move(path)) : std::nullopt;
}

void setHostTmpDir(std::string directory) { hostDirectory() = std::move(directory); }

ScratchDirectory::ScratchDirectory()
    : path_(hostDirectory().empty() ? makePrivateDirectory() : makeIn(hostDirectory())) {}

ScratchDirectory::~ScratchDirectory() { HUTFile::rmRecursive(path_); }

}  // namespace util
