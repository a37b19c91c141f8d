#pragma once
#include <csignal>

namespace util {

/// Blocks, in this thread, the signals that writing can raise: SIGXFSZ of a file that may not grow, SIGPIPE of a pipe
/// that nobody reads. The host's dispositions are not touched.
class BlockedSignals {
public:
    BlockedSignals();
    ~BlockedSignals();
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;

    /// Takes back what was raised during the lifetime of this object; a signal that was pending before stays pending.
    void takeBack() const;

private:
    sigset_t before_, pending_;
};

}  // namespace util
