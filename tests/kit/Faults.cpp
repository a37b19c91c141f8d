#include "kit/Faults.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

namespace {

using faults::Action;
using faults::Event;

struct {
    Action action = Action::none;
    long at = 0;
    int error = 0;
} plan;
std::vector<const char*>* made = nullptr;
std::vector<Event>* log = nullptr;

struct {
    bool isArmed = false, andLater = false;
    long at = 0, count = 0, live = 0;
    const void* refused = nullptr;  ///< who asked for allocation `at`
} memory;

/// What is armed, put aside while this file itself calls.
class Aside {
public:
    Aside() : action_(plan.action), isMemory_(memory.isArmed) {
        plan.action = Action::none;
        memory.isArmed = false;
    }
    ~Aside() {
        plan.action = action_;
        memory.isArmed = isMemory_;
    }

private:
    Action action_;
    bool isMemory_;
};

/// Counts a call; true when it is to fail, with errno set.
bool fails(const char* name) {
    if (plan.action == Action::none) return false;
    long number = 0;
    {
        const Aside aside;
        made->push_back(name);
        number = static_cast<long>(made->size());
    }
    if (number != plan.at) return false;
    if (plan.action == Action::kill) ::kill(::getpid(), SIGKILL);
    errno = plan.error;
    return plan.action == Action::fail;
}

std::size_t shortened(std::size_t size) {
    const bool isIt = plan.action == Action::shorten && static_cast<long>(made->size()) == plan.at;
    return isIt && size > 1 ? size / 2 : size;
}

ino_t inodeOf(int file) {
    struct stat status {};
    return ::syscall(SYS_fstat, file, &status) == 0 ? status.st_ino : 0;
}

/// Writes down the event that `make` gives.
template <class Make>
void note(Make make) {
    if (!log) return;
    const Aside aside;
    log->push_back(make());
}

std::string baseOf(const char* path) {
    const char* const slash = std::strrchr(path, '/');
    return slash ? slash + 1 : path;
}

template <class Function>
Function* next(const char* name) {
    const Aside aside;
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

[[gnu::constructor]] void armFromEnvironment() {
    if (const char* const text = std::getenv("ZR_FAULT")) faults::armBy(text);
}

int openAt(const char* name, int directory, const char* path, int flags, mode_t mode) {
    static auto* const real = next<int(int, const char*, int, ...)>("openat");
    if (fails(name)) return -1;
    const int file = real(directory, path, flags, mode);
    if (file >= 0 && (flags & O_CREAT))
        note([&] { return Event{Event::Kind::create, inodeOf(file), baseOf(path), "", 0, ""}; });
    return file;
}

ssize_t written(const char* name, int file, const void* bytes, std::size_t size, std::int64_t offset) {
    if (fails(name)) return -1;
    size = shortened(size);
    const auto at = offset >= 0 ? offset : static_cast<std::int64_t>(::lseek(file, 0, SEEK_CUR));
    const auto done = static_cast<ssize_t>(offset >= 0 ? ::syscall(SYS_pwrite64, file, bytes, size, offset)
                                                       : ::syscall(SYS_write, file, bytes, size));
    if (done > 0)
        note([&] {
            return Event{Event::Kind::write,
                         inodeOf(file),
                         "",
                         "",
                         static_cast<std::uint64_t>(std::max<std::int64_t>(at, 0)),
                         std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(done))};
        });
    return done;
}

bool isRefused(const void* caller) {
    if (!memory.isArmed) return false;
    ++memory.count;
    if (memory.at > 0 && memory.count == memory.at) memory.refused = caller;
    return memory.at > 0 && (memory.count == memory.at || (memory.andLater && memory.count > memory.at));
}

void* counted(void* block) {
    if (block) __atomic_add_fetch(&memory.live, 1, __ATOMIC_RELAXED);
    if (!block) errno = ENOMEM;
    return block;
}

}  // namespace

namespace faults {

void arm(Action action, long at, int error) {
    plan = {};
    if (!made) made = new std::vector<const char*>;
    made->clear();
    plan = {action, at, error};
}

void armBy(const char* text) {
    long at = 0;
    int error = 0;
    if (std::sscanf(text, "kill:%ld", &at) == 1)
        arm(Action::kill, at);
    else if (std::sscanf(text, "fail:%ld:%d", &at, &error) == 2)
        arm(Action::fail, at, error);
}

const std::vector<const char*>& calls() { return *made; }

void armMemory(long at, bool andLater) {
    const long live = memory.live;
    const void* const refused = at > 0 ? nullptr : memory.refused;
    memory = {at > 0 || andLater, andLater, at, 0, live, refused};
}

long allocations() { return memory.count; }
long live() { return memory.live; }

std::string refused() {
    Dl_info library;
    if (!memory.refused || !dladdr(memory.refused, &library)) return "";
    return std::filesystem::path(library.dli_fname).filename();
}

void startLog() { log = new std::vector<Event>; }

std::vector<Event> takeLog() {
    std::vector<Event>* const taken = std::exchange(log, nullptr);
    std::vector<Event> events = std::move(*taken);
    delete taken;
    return events;
}

}  // namespace faults

// The C library's names. glibc declares some of them with attributes that a definition need not repeat.
extern "C" {

void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);

void* malloc(std::size_t size) noexcept {
    return counted(isRefused(__builtin_return_address(0)) ? nullptr : __libc_malloc(size));
}
void* calloc(std::size_t n, std::size_t size) noexcept {
    return counted(isRefused(__builtin_return_address(0)) ? nullptr : __libc_calloc(n, size));
}
void* realloc(void* block, std::size_t size) noexcept {
    if (isRefused(__builtin_return_address(0))) {
        errno = ENOMEM;
        return nullptr;
    }
    return block ? __libc_realloc(block, size) : counted(__libc_realloc(block, size));
}
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return counted(isRefused(__builtin_return_address(0)) ? nullptr : __libc_memalign(alignment, size));
}
void free(void* block) noexcept {
    if (block) __atomic_sub_fetch(&memory.live, 1, __ATOMIC_RELAXED);
    __libc_free(block);
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return openAt("open", AT_FDCWD, path, flags, mode);
}
int openat(int directory, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return openAt("openat", directory, path, flags, mode);
}

ssize_t write(int file, const void* bytes, std::size_t size) { return written("write", file, bytes, size, -1); }
ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t offset) {
    return written("pwrite", file, bytes, size, offset);
}
ssize_t read(int file, void* bytes, std::size_t size) {
    return fails("read") ? -1 : static_cast<ssize_t>(::syscall(SYS_read, file, bytes, shortened(size)));
}
ssize_t pread(int file, void* bytes, std::size_t size, off_t offset) {
    return fails("pread") ? -1 : static_cast<ssize_t>(::syscall(SYS_pread64, file, bytes, shortened(size), offset));
}

// A file whose close fails is closed all the same.
int close(int file) {
    const bool isRefused = fails("close");
    const int error = errno;
    const auto result = static_cast<int>(::syscall(SYS_close, file));
    if (!isRefused) return result;
    errno = error;
    return -1;
}

int fsync(int file) {
    if (fails("fsync")) return -1;
    note([&] { return Event{Event::Kind::sync, inodeOf(file), "", "", 0, ""}; });
    return static_cast<int>(::syscall(SYS_fsync, file));
}
int ftruncate(int file, off_t size) noexcept {
    if (fails("ftruncate")) return -1;
    note([&] { return Event{Event::Kind::cut, inodeOf(file), "", "", static_cast<std::uint64_t>(size), ""}; });
    return static_cast<int>(::syscall(SYS_ftruncate, file, size));
}
int renameat(int from, const char* name, int to, const char* newName) noexcept {
    if (fails("renameat")) return -1;
    note([&] { return Event{Event::Kind::rename, 0, baseOf(name), baseOf(newName), 0, ""}; });
    return static_cast<int>(::syscall(SYS_renameat, from, name, to, newName));
}
int renameat2(int from, const char* name, int to, const char* newName, unsigned flags) noexcept {
    if (fails("renameat2")) return -1;
    note([&] { return Event{Event::Kind::rename, 0, baseOf(name), baseOf(newName), 0, ""}; });
    return static_cast<int>(::syscall(SYS_renameat2, from, name, to, newName, flags));
}
int rename(const char* name, const char* newName) noexcept { return renameat(AT_FDCWD, name, AT_FDCWD, newName); }
int unlinkat(int directory, const char* name, int flags) noexcept {
    if (fails("unlinkat")) return -1;
    note([&] { return Event{Event::Kind::unlink, 0, baseOf(name), "", 0, ""}; });
    return static_cast<int>(::syscall(SYS_unlinkat, directory, name, flags));
}
int unlink(const char* name) noexcept { return unlinkat(AT_FDCWD, name, 0); }
int rmdir(const char* name) noexcept { return unlinkat(AT_FDCWD, name, AT_REMOVEDIR); }

// Calls that are only counted and refused: by number, and by the next library that has the name.
#define ZR_BY_NUMBER(Result, name, parameters, ...) \
    Result name parameters { return fails(#name) ? Result(-1) : static_cast<Result>(::syscall(__VA_ARGS__)); }
#define ZR_BY_NAME(Result, failure, name, parameters, ...)        \
    Result name parameters {                                      \
        static auto* const real = next<Result parameters>(#name); \
        return fails(#name) ? failure : real(__VA_ARGS__);        \
    }
ZR_BY_NUMBER(int, fstat, (int file, struct stat* status) noexcept, SYS_fstat, file, status)
ZR_BY_NUMBER(int, fstatat, (int directory, const char* path, struct stat* status, int flags) noexcept, SYS_newfstatat,
             directory, path, status, flags)
ZR_BY_NUMBER(int, mkdirat, (int directory, const char* path, mode_t mode) noexcept, SYS_mkdirat, directory, path,
             mode)
ZR_BY_NUMBER(int, flock, (int file, int how) noexcept, SYS_flock, file, how)
ZR_BY_NUMBER(int, fchmod, (int file, mode_t mode) noexcept, SYS_fchmod, file, mode)
ZR_BY_NUMBER(int, fchown, (int file, uid_t user, gid_t group) noexcept, SYS_fchown, file, user, group)
ZR_BY_NUMBER(ssize_t, readlink, (const char* path, char* bytes, std::size_t size) noexcept, SYS_readlink, path, bytes,
             size)
ZR_BY_NUMBER(int, sync_file_range, (int file, off64_t offset, off64_t size, unsigned flags), SYS_sync_file_range,
             file, offset, size, flags)
ZR_BY_NUMBER(int, access, (const char* path, int how) noexcept, SYS_access, path, how)
ZR_BY_NUMBER(int, faccessat, (int directory, const char* path, int how, int flags) noexcept, SYS_faccessat2,
             directory, path, how, flags)
ZR_BY_NAME(char*, nullptr, mkdtemp, (char* form) noexcept, form)
ZR_BY_NAME(int, -1, mkostemp, (char* form, int flags), form, flags)
ZR_BY_NAME(dirent*, nullptr, readdir, (DIR * directory), directory)
ZR_BY_NAME(DIR*, nullptr, opendir, (const char* path), path)
ZR_BY_NAME(DIR*, nullptr, fdopendir, (int directory), directory)
ZR_BY_NAME(FILE*, nullptr, fopen, (const char* path, const char* mode), path, mode)
int stat(const char* path, struct stat* status) noexcept { return fstatat(AT_FDCWD, path, status, 0); }
int lstat(const char* path, struct stat* status) noexcept {
    return fstatat(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
int mkdir(const char* path, mode_t mode) noexcept { return mkdirat(AT_FDCWD, path, mode); }

}  // extern "C"
