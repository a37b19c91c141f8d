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

namespace {

struct TmpDir {
    pid_t maker;
    std::string path;
};

[[noreturn]] void fail(const std::string& path, int error) {
    throw HEXUserException("temporary directory '" + path +
                           "' could not be made: " + std::generic_category().message(error));
}

std::unique_ptr<TmpDir> makeTmpDir() {
    const char* const place = std::getenv("TMPDIR");
    std::string path = HUTFile::getCanonicalName(place && *place ? place : "/tmp") + "/zr_platform-XXXXXX";
    if (!::mkdtemp(path.data())) fail(path, errno);
    return std::make_unique<TmpDir>(TmpDir{::getpid(), std::move(path)});
}

/// Owns the directory. Not guarded by a lock: a fork in one thread must not leave the child with a lock that is never
/// released.
class TmpDirOfProcess {
public:
    ~TmpDirOfProcess() {
        const std::unique_ptr<TmpDir> dir(dir_.exchange(nullptr));
        if (dir && dir->maker == ::getpid()) HUTFile::rmRecursive(dir->path);
    }
    const std::string& get() {
        TmpDir* present = dir_.load();
        while (!present || present->maker != ::getpid()) {
            auto fresh = makeTmpDir();
            if (dir_.compare_exchange_strong(present, fresh.get())) {
                delete present;  // the parent's, in a child that has one thread
                return fresh.release()->path;
            }
            ::rmdir(fresh->path.c_str());  // another thread was first
        }
        return present->path;
    }

private:
    std::atomic<TmpDir*> dir_{nullptr};
};

bool makePrivate(const std::string& path) { return ::mkdir(path.c_str(), 0700) == 0; }

}  // namespace

std::string util::privateTmpDirOfThread() {
    static TmpDirOfProcess process;
    const std::string& base = process.get();
    std::string path = base + "/" + std::to_string(::gettid());
    if (makePrivate(path) || errno == EEXIST) return path;
    // Something removes old files there while this process is still running.
    if (errno == ENOENT && makePrivate(base) && makePrivate(path)) return path;
    fail(path, errno);
}
