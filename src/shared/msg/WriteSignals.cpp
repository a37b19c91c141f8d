#include "msg/WriteSignals.h"

#include <cerrno>
#include <ctime>
#include <initializer_list>

namespace msg {

WriteSignals::WriteSignals() {
    ::sigemptyset(&own_);
    for (const int signal : {SIGXFSZ, SIGPIPE}) ::sigaddset(&own_, signal);
    ::pthread_sigmask(SIG_BLOCK, &own_, &before_);
    // Only a signal that was blocked before can be pending.
    if (!::sigismember(&before_, SIGXFSZ) && !::sigismember(&before_, SIGPIPE)) return;
    sigset_t pending;
    ::sigpending(&pending);
    for (const int signal : {SIGXFSZ, SIGPIPE})
        if (::sigismember(&pending, signal)) ::sigdelset(&own_, signal);
}

void WriteSignals::takeBack() const {
    const timespec now{};
    while (::sigtimedwait(&own_, nullptr, &now) < 0 && errno == EINTR) {
    }
}

}  // namespace msg
