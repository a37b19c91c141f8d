#include "util/WriteAll.h"

#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace util {
namespace {

/// Blocks, in this thread, the signals that writing can raise, and takes back the one that it has raised.
class BlockedSignals {
public:
    BlockedSignals() {
        sigset_t both;
        ::sigemptyset(&both);
        for (const int signal : {SIGXFSZ, SIGPIPE}) ::sigaddset(&both, signal);
        ::pthread_sigmask(SIG_BLOCK, &both, &before_);
        ::sigemptyset(&pending_);
        // Only a signal that was blocked before can be pending.
        if (::sigismember(&before_, SIGXFSZ) || ::sigismember(&before_, SIGPIPE)) ::sigpending(&pending_);
    }
    ~BlockedSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;

    /// To be called when a write has failed with `error`.
    void takeBack(int error) const {
        const int signal = error == EPIPE ? SIGPIPE : error == EFBIG ? SIGXFSZ : 0;
        if (signal == 0 || ::sigismember(&pending_, signal)) return;
        sigset_t raised;
        ::sigemptyset(&raised);
        ::sigaddset(&raised, signal);
        const timespec now{};
        while (::sigtimedwait(&raised, nullptr, &now) < 0 && errno == EINTR) {
        }
    }

private:
    sigset_t before_, pending_;
};

template <class Write>
int writeEach(std::string_view bytes, Write write) {
    const BlockedSignals blocked;
    while (!bytes.empty()) {
        const ssize_t put = write(bytes);
        const int error = errno;
        if (put < 0 && error == EINTR) continue;
        if (put < 0) {
            blocked.takeBack(error);
            return error;
        }
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return 0;
}

}  // namespace

int writeAll(int file, std::string_view bytes) {
    return writeEach(bytes, [file](std::string_view left) { return ::write(file, left.data(), left.size()); });
}

int writeAllAt(int file, std::uint64_t offset, std::string_view bytes) {
    const std::uint64_t end = offset + bytes.size();
    return writeEach(bytes, [file, end](std::string_view left) {
        return ::pwrite(file, left.data(), left.size(), static_cast<off_t>(end - left.size()));
    });
}

}  // namespace util
