#include "kit/HostState.h"

#include <sys/stat.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <locale>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {

/// Names in a directory of the process, sorted; of links what they point to as well.
std::string listed(const std::string& directory) {
    std::set<std::string> lines;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(directory)) {
        const fs::path target = fs::read_symlink(entry.path(), error);
        if (target != directory && target.native().find("/proc/") != 0)  // the listing's own descriptor
            lines.insert(entry.path().filename().native() + " " + target.native());
    }
    std::string text;
    for (const std::string& line : lines) text += "  " + line + "\n";
    return text;
}

std::string signals() {
    std::string text;
    for (int number = 1; number < SIGRTMAX; ++number) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) != 0) continue;
        // The C library adds a flag of its own to each disposition that is set, be it that of before.
        constexpr int kRestorer = 0x04000000;
        text += std::to_string(number) + ":" + std::to_string(reinterpret_cast<std::uintptr_t>(action.sa_handler)) +
                "/" + std::to_string(action.sa_flags & ~kRestorer) + " ";
    }
    sigset_t blocked;
    ::sigprocmask(SIG_SETMASK, nullptr, &blocked);
    for (int number = 1; number < SIGRTMAX; ++number) text += sigismember(&blocked, number) == 1 ? "1" : "0";
    return text;
}

std::string children() {
    std::ostringstream text;
    for (const auto& task : fs::directory_iterator("/proc/self/task"))
        text << std::ifstream(task.path() / "children").rdbuf();
    return text.str();
}

std::string environment() {
    std::string text;
    for (char** at = environ; *at; ++at) text += std::string("  ") + *at + "\n";
    return text;
}

}  // namespace

std::string hostState() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    std::ostringstream text;
    text << "directory " << fs::current_path().native() << "\numask " << mask << "\nlocale "
         << std::setlocale(LC_ALL, nullptr) << " " << std::locale().name() << "\nsignals " << signals()
         << "\nchildren " << children() << "\nthreads\n"
         << listed("/proc/self/task") << "descriptors\n"
         << listed("/proc/self/fd") << "environment\n"
         << environment();
    return text.str();
}
