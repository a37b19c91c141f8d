#pragma once
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

/// What a process took.
struct Use {
    int exit = -1;            ///< 128 and the signal if it was killed
    double seconds = 0;       ///< of the processor
    double peak = 0;          ///< bytes
    std::string text;         ///< the first MiB of what it printed on both streams
    std::size_t printed = 0;  ///< bytes
};

inline double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Runs the tool with these arguments.
inline Use useOf(const std::vector<std::string>& arguments) {
    std::vector<char*> argv{const_cast<char*>(ZR_TOOL)};
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return {};
    const pid_t child = ::fork();
    if (child == 0) {
        for (const int stream : {1, 2}) ::dup2(ends[1], stream);
        ::execv(ZR_TOOL, argv.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    Use use;
    std::vector<char> block(1 << 16);
    for (ssize_t n = 0; (n = ::read(ends[0], block.data(), block.size())) > 0;
         use.printed += static_cast<std::size_t>(n))
        if (use.text.size() < 1 << 20) use.text.append(block.data(), static_cast<std::size_t>(n));
    ::close(ends[0]);
    int status = 0;
    rusage used{};
    ::wait4(child, &status, 0, &used);
    use.exit = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    use.seconds = secondsOf(used.ru_utime) + secondsOf(used.ru_stime);
    use.peak = static_cast<double>(used.ru_maxrss) * 1024;
    return use;
}
