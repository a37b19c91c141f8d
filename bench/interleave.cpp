// Whole processes against each other: each command runs once in each round, in rotating order, so that the drift of a
// shared machine falls on all alike.  usage: interleave ROUNDS NAME COMMAND [-- NAME COMMAND]...
// A command is one word that sh runs when it has a "|" in it, else it is split at blanks and run directly.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Contestant {
    std::string name;
    std::vector<std::string> command;
    std::vector<double> times;  // milliseconds
    long peak = 0;              // KiB
};

void runOnce(Contestant& contestant, bool counts) {
    std::vector<char*> argv;
    for (std::string& word : contestant.command) argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ) != 0) std::exit(1);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    if (status != 0) {
        std::fprintf(stderr, "%s failed\n", contestant.name.c_str());
        std::exit(1);
    }
    if (!counts) return;
    contestant.times.push_back(time.count());
    contestant.peak = std::max(contestant.peak, usage.ru_maxrss);
}

std::vector<std::string> words(const std::string& text) {
    if (text.find('|') != std::string::npos) return {"sh", "-c", text};
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = std::atoi(argv[1]);
    std::vector<Contestant> contestants;
    for (int i = 2; i + 1 < argc; i += 3) contestants.push_back({argv[i], words(argv[i + 1]), {}, 0});
    for (int round = -2; round < rounds; ++round)
        for (std::size_t k = 0; k < contestants.size(); ++k)
            runOnce(contestants[(k + static_cast<std::size_t>(round + 2)) % contestants.size()], round >= 0);
    const double first = median(contestants.front().times);
    std::printf("%-34s %12s %12s %12s\n", "", "median ms", "ratio", "peak KiB");
    for (const Contestant& contestant : contestants)
        std::printf("%-34s %12.3f %12.3f %12ld\n", contestant.name.c_str(), median(contestant.times),
                    median(contestant.times) / first, contestant.peak);
}
