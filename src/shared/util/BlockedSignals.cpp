#include "util/BlockedSignals.h"

#include <pthread.h>

#include <cerrno>
#include <ctime>

namespace util {
namespace {

constexpr int kSignals[] = {SIGXFSZ, SIGPIPE};

}  // namespace

BlockedSignals::BlockedSignals() {
    sigset_t both;
    ::sigemptyset(&both);
    for (const int signal : kSignals) ::sigaddset(&both, signal);
    ::pthread_sigmask(SIG_BLOCK, &both, &before_);
    ::sigemptyset(&pending_);
    // Only a signal that was blocked before can be pending.
    if (::sigismember(&before_, SIGXFSZ) || ::sigismember(&before_, SIGPIPE)) ::sigpending(&pending_);
}

BlockedSignals::~BlockedSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

void BlockedSignals::takeBack() const {
    sigset_t raised;
    ::sigemptyset(&raised);
    for (const int signal : kSignals)
        if (!::sigismember(&pending_, signal)) ::sigaddset(&raised, signal);
    const timespec now{};
    while (::sigtimedwait(&raised, nullptr, &now) >= 0 || errno == EINTR) {
    }
}

}  // namespace util
