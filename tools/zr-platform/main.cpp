#include <exception>

#include "CommandLine.h"
#include "Console.h"

int main(int argc, char** argv) {
    Console& console = Console::take();
    int exit = static_cast<int>(Exit::fault);
    try {
        exit = runCommandLine(argc, argv);
        console.flush();
    } catch (...) {
        try {
            const teq_platform::Failure failure = teq_platform::currentFailure();
            exit = static_cast<int>(exitOf(failure));
            console.report(failure);
        } catch (...) {
            return exit;  // nothing can be printed, or memory has run out: only the exit code is left
        }
    }
    return exit;
}
