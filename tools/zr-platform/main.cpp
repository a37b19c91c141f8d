#include <csignal>
#include <cstdlib>
#include <exception>

#include "CommandLine.h"
#include "Console.h"

namespace {

/// From now on, a write that fails is an error, and not a signal. The signals have a handler and are not ignored, so
/// that programs that scripts start have the usual disposition again.
void catchWriteSignals() {
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        struct sigaction present {};
        if (::sigaction(signal, nullptr, &present) != 0 || present.sa_handler != SIG_DFL) continue;
        present.sa_handler = [](int) {};
        present.sa_flags = SA_RESTART;
        ::sigaction(signal, &present, nullptr);
    }
}

bool isReaderGone = false;

/// Registered first, so that it is called last: the library's temporary files have been removed.
void endBySignal() {
    if (!isReaderGone) return;
    std::signal(SIGPIPE, SIG_DFL);
    std::raise(SIGPIPE);
}

}  // namespace

int main(int argc, char** argv) {
    std::atexit(endBySignal);
    catchWriteSignals();
    Console& console = Console::take();
    int exit = static_cast<int>(Exit::fault);
    try {
        try {
            exit = runCommandLine(argc, argv);
            console.flush();
        } catch (const ReaderGone&) {
            throw;
        } catch (...) {
            const teq_platform::Failure failure = teq_platform::currentFailure();
            exit = static_cast<int>(exitOf(failure));
            console.report(failure);
        }
    } catch (const ReaderGone&) {
        isReaderGone = true;
    } catch (...) {  // NOLINT(bugprone-empty-catch): nothing can be printed, or memory has run out
    }
    return exit;
}
