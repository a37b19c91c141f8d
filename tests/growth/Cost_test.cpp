// What at most 1 MB of files may cost, whatever they hold: 2 s of the processor and 300 MiB for each verb.
#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <map>
#include <random>

#include "growth/Inputs.h"
#include "kit/Use.h"
#include "text/HSTStringUtils.h"

namespace {

constexpr double kMiB = 1024.0 * 1024.0;

/// The commands, then the inputs.
const std::vector<cases::Case>& inputs() {
    static const auto all = cases::read(ZR_SOURCE_DIR "/tests/cases/growth/cost.case");
    return all;
}

/// How many times slower this machine is at the moment than one for which the limit holds, at least 1.
double slowness() {
    constexpr double kSeconds = 0.15;  // of the same work there
    const std::clock_t start = std::clock();
    std::map<std::string, unsigned> texts;
    std::mt19937 random(1);
    for (unsigned i = 0; i < 100'000; ++i) texts[std::to_string(random())] = i;
    return std::max(1.0, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / kSeconds);
}

}  // namespace

class Cost : public testing::TestWithParam<std::size_t> {};

TEST_P(Cost, IsBounded) {
    const Scratch scratch;
    const cases::Case& input = inputs()[GetParam()];
    const std::string file = writeInput(scratch, input).first, kind = std::filesystem::path(file).extension();
    std::uintmax_t size = 0;
    for (const auto& each : std::filesystem::recursive_directory_iterator(scratch.str()))
        if (each.is_regular_file() && !each.is_symlink()) size += each.file_size();
    EXPECT_LE(size, 1'000'000U) << input.name;
    scratch.put("a.tcl", "puts a\n");
    scratch.put("small.lfa", builder::archiveOf({builder::Entry("lfa.json", R"({"name": "small"})", true)}).build());
    if (kind == ".json") {  // whatever reads such a file by its name
        scratch.put("board/board.json", contentOf(file));
        scratch.put("folder/lfa.json", contentOf(file));
    }
    for (const auto& [kinds, command, number] : inputs()[0].lines) {
        if ((kinds + ",").find(kind + ",") == std::string::npos) continue;
        const std::string line =
            replaced(replaced(replaced(command, "@", file), "$", scratch.str()), "%", ZR_SOURCE_DIR);
        const Use used = useOf(HSTStringUtils::split(line, ' '));
        SCOPED_TRACE(input.name + ": " + command);
        std::printf("  %-40s %-12.12s exit %d, %.2f s, %4.0f MiB, %zu bytes: %.70s\n", input.name.c_str(),
                    command.c_str(), used.exit, used.seconds, used.peak / kMiB, used.printed,
                    used.exit ? used.text.c_str() : "\n");
        EXPECT_LT(used.seconds, used.seconds < 2 ? 2 : 2 * slowness());
        EXPECT_LT(used.peak, 300 * kMiB);
        EXPECT_TRUE(used.exit == 0 || used.exit == 1 || used.exit == 3) << used.exit;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Cost, testing::Range<std::size_t>(1, inputs().size()));
