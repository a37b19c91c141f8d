#include "util/PrivateTmpDir.h"

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include "util/HUTFile.h"
#include "util/MadeDirectory.h"

namespace {

using util::DirectoryStamp;

/// What `mkdtemp` takes, in a directory or, if it is empty, in the one of the environment.
std::string formIn(const std::string& directory) {
    const char* const place = directory.empty() ? std::getenv("TMPDIR") : directory.c_str();
    return HUTFile::getCanonicalName(place && *place ? place : "/tmp") + "/zr_platform-XXXXXX";
}

struct TmpDir {
    TmpDir() : maker(::getpid()), path(formIn("")) {
        if (!::mkdtemp(path.data())) util::failToMake(path, errno);
        stamp = DirectoryStamp::of(path);
        if (!stamp) util::failToMake(path, EPERM);
    }
    /// Something may remove old files while this process is running, and somebody else may take the name.
    bool isIntact() const { return maker == ::getpid() && DirectoryStamp::of(path) == stamp; }

    pid_t maker;
    std::string path;
    std::optional<DirectoryStamp> stamp;
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
            auto fresh = std::make_unique<TmpDir>();
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
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) failToMake(path, errno);
    if (!DirectoryStamp::of(path)) failToMake(path, EPERM);
    return path;
}

std::optional<std::string> madeTmpDir() {
    if (!hostDirectory().empty()) return hostDirectory();
    const TmpDir* const dir = tmpDirOfProcess().made();
    if (!dir || !dir->isIntact()) return std::nullopt;
    std::string path = pathOfThread(dir->path);
    return DirectoryStamp::of(path) ? std::optional(std::move(path)) : std::nullopt;
}

void setHostTmpDir(std::string directory) { hostDirectory() = std::move(directory); }

ScratchDirectory::ScratchDirectory() : MadeDirectory(formIn(hostDirectory())) {}

}  // namespace util
