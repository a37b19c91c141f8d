#pragma once
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "kit/Files.h"

struct Result {
    int exit = -1;  ///< 128 + signal for a program that died
    std::string out, err;
};

/// Runs a program and takes what it writes.
inline Result run(const std::vector<std::string>& command, const std::string& directory = ".",
                  const std::vector<std::pair<std::string, std::string>>& environment = {}) {
    char base[] = "/tmp/zr_run_XXXXXX";
    const std::string scratch = mkdtemp(base);
    const std::string out = scratch + "/out", err = scratch + "/err";
    const pid_t child = fork();
    if (child == 0) {
        if (chdir(directory.c_str()) != 0) _exit(126);
        for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
        dup2(open(out.c_str(), O_WRONLY | O_CREAT, 0600), 1);
        dup2(open(err.c_str(), O_WRONLY | O_CREAT, 0600), 2);
        std::vector<char*> argv;
        for (const std::string& argument : command) argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        execvp(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    Result result{WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), contentOf(out), contentOf(err)};
    unlink(out.c_str());
    unlink(err.c_str());
    rmdir(scratch.c_str());
    return result;
}
