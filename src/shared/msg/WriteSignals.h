#pragma once
#include <csignal>

namespace msg {

/// While it lives, a write of this thread to a pipe that nobody reads (SIGPIPE) or to a file that may not grow
/// (SIGXFSZ) is an error and not a signal: the host must survive it. The host's dispositions are not touched, and a
/// signal that was pending before stays pending.
class WriteSignals {
public:
    WriteSignals();
    ~WriteSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    WriteSignals(const WriteSignals&) = delete;
    WriteSignals& operator=(const WriteSignals&) = delete;

    /// To be called after a write that may have failed: takes back the signal that it has raised.
    void takeBack() const;

private:
    sigset_t before_, own_;
};

}  // namespace msg
