// The embedded Tcl, and what its host sees of it.
#include "tcl/Interpreter.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "kit/Cases.h"
#include "kit/HostState.h"
#include "kit/Scratch.h"

using jun::tcltasks::task_limits;
using jun::tcltasks::task_manager;
using namespace std::chrono_literals;

TEST(EmbeddedTcl, EndsInOrderAndLeavesTheHostAsItWas) {
    // What Tcl would take from the environment differs from what the host has set.
    ::setenv("LC_ALL", "C", 1);
    ASSERT_TRUE(std::setlocale(LC_ALL, "C.UTF-8"));
    const Scratch scratch;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(scratch.str());
    const std::string host = hostState();
    cases::expectTexts(
        ZR_SOURCE_DIR "/tests/cases/tcl/evaluate.case", [&](const std::string& name, const std::string& script) {
            std::string printed;
            rlimit size{}, small{};
            ::getrlimit(RLIMIT_FSIZE, &size);
            small = {name.starts_with("full") ? 50'000 : size.rlim_cur, size.rlim_max};
            ::setrlimit(RLIMIT_FSIZE, &small);
            const task_limits limits({.time = name == "plain: time" ? 300ms : 60s,
                                      .mayRunPrograms = name.starts_with("programs"),
                                      .output = [&printed](std::string_view text) { printed += text; }});
            const auto result = task_manager::eval_in_tcl(script, false, true);
            ::setrlimit(RLIMIT_FSIZE, &size);
            EXPECT_EQ(hostState(), host) << script;
            return printed + (result.isDone ? "= " : "! ") + result.text;
        });
    std::filesystem::current_path(before);
    std::setlocale(LC_ALL, "C");
}

TEST(EmbeddedTcl, BoundsWhatScriptsPrint) {
    std::size_t printed = 0;
    const task_limits limits({.output = [&printed](std::string_view text) { printed += text.size(); }});
    const auto result = task_manager::eval_in_tcl(
        "set line [string repeat x 99999]; for {set i 0} {$i < 1000} {incr i} { puts $line }", false, true);
    EXPECT_TRUE(result.isDone) << result.text;
    EXPECT_GE(printed, 1U << 20);
    EXPECT_LT(printed, (1U << 20) + 100);
}

TEST(EmbeddedTcl, RunsInSeveralThreadsAtOnce) {
    std::vector<std::string> results(4);
    std::vector<std::thread> threads;
    for (std::string& result : results)
        threads.emplace_back([&result] {
            for (int i = 0; i < 20; ++i)
                result = task_manager::eval_in_tcl("set n 0; while {$n < 1000} {incr n}; set n", false, true).text;
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(results, std::vector<std::string>(4, "1000"));
}

TEST(TaskManager, AsksTheHostsInterpreter) {
    std::vector<std::string> asked;
    task_manager::setEvaluator([&asked](const task_manager::Command& command) {
        asked.push_back(command.text + (command.isRecorded ? " recorded" : "") + (command.isGlobal ? " global" : ""));
        return task_manager::Result{false, "refused"};
    });
    EXPECT_EQ(task_manager::eval_in_tcl("a", false, true).text, "refused");
    EXPECT_FALSE(task_manager::eval_in_tcl("b", true, false).isDone);
    task_manager::setEvaluator({});
    EXPECT_EQ(asked, (std::vector<std::string>{"a global", "b recorded"}));
    EXPECT_EQ(task_manager::eval_in_tcl("set own 1", false, true).text, "1");
}
