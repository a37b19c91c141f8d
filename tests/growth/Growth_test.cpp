// Large inputs, each in a process of its own: time and memory that they take, and how both grow.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "growth/Inputs.h"
#include "kit/Use.h"

namespace {

constexpr double kMiB = 1024.0 * 1024.0, kMaxSeconds = 10;

const std::vector<cases::Case>& inputs() {
    static const auto all = cases::read(ZR_SOURCE_DIR "/tests/cases/growth/growth.case");
    return all;
}

std::string valueOf(const cases::Case& input, const std::string& word, const std::string& otherwise) {
    const auto at = std::ranges::find(input.lines, word, &cases::Line::word);
    return at != input.lines.end() ? at->text : otherwise;
}

}  // namespace

class Growth : public testing::TestWithParam<std::size_t> {};

TEST_P(Growth, IsLinear) {
    const Scratch scratch;
    const cases::Case& input = inputs()[GetParam()];
    SCOPED_TRACE(input.name);
    const std::string verb = valueOf(input, "verb", "json");
    const double nodes = std::stod(valueOf(input, "nodes", ""));
    double before = 0;
    for (const unsigned part : {4, 1}) {
        const unsigned number = static_cast<unsigned>(std::stoul(valueOf(input, "most", ""))) / part;
        const auto [file, size] = writeInput(scratch, input, number);
        Use used = useOf({verb, file});
        // n log n for four times as much is below 5, caches that are too small for it add to that, and n * n is 16; a
        // small time proves nothing, and a large one may be the machine's.
        const auto grows = [&] { return part == 1 && used.seconds > 0.2 && used.seconds > 8 * before; };
        for (int again = 0; again < 3 && grows(); ++again)
            used.seconds = std::min(used.seconds, useOf({verb, file}).seconds);
        EXPECT_FALSE(grows()) << used.seconds << " s after " << before;
        EXPECT_EQ(std::to_string(used.exit), valueOf(input, "exit", "0"));
        EXPECT_LT(used.seconds, kMaxSeconds);
        EXPECT_LT(used.peak, 12.0 * static_cast<double>(size) + 700 * nodes * number + 64 * kMiB) << size;
        std::printf("  %-24s %8u: %10zu bytes, %.2f s, %.0f MiB\n", input.name.c_str(), number, size, used.seconds,
                    used.peak / kMiB);
        before = used.seconds;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Growth, testing::Range<std::size_t>(0, inputs().size()));

/// Neither the platforms nor their reports are kept: a thousand take no more memory than a hundred.
TEST(Growth, CatalogStreams) {
    const Scratch scratch;
    const std::string item = R"({"name": "m#", "type": "ddr4", "size": "4 GB"})";
    const std::string archive =
        builder::archiveOf(
            {builder::Entry("lfa.json", expanded(R"({"memories": [\(1000, )" + item + "\\)]}", 0), true)})
            .build();
    scratch.put("sw.spfm", kSoftware);
    double before = 0;
    for (const int most : {100, 1000}) {
        for (int i = 0; i < most; ++i) {
            const std::string name = "x" + std::to_string(i);
            scratch.put("all/" + name + "/" + name + ".lfa", archive);
            scratch.put("all/" + name + "/" + name + ".zdf",
                        descriptor("<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", name + ".lfa") +
                                       "</teq:hardwarePlatforms>",
                                   "../../sw.spfm"));
        }
        const Use used = useOf({"catalog", "--repo=" + (scratch / "all"), "--no-defaults", "--ndjson", "--detailed"});
        EXPECT_EQ(used.exit, 0);
        EXPECT_EQ(std::count(used.text.begin(), used.text.end(), '\n'), most);
        if (before > 0) {
            EXPECT_LT(used.peak, before + 4 * kMiB);
        }
        before = used.peak;
    }
}

/// A thousandfold at each of two levels: refused unless it is small, whatever is promised.
TEST(Bombs, TwoLevels) {
    const Scratch scratch;
    for (const bool isLarge : {false, true}) {
        const std::size_t size = isLarge ? 500'000'000 : 100'000'000;
        const builder::Entry bomb("bomb", std::string(size, '\0'), true);
        // The nested archive is stored in the first case and packed again in the second.
        const builder::Entry nested("x.tilprj", builder::archiveOf({bomb}).build(), isLarge),
            metadata("lfa.json", R"({"files": [{"type": "TILPRJ", "name": "x.tilprj"}]})");
        scratch.put("x.lfa", builder::archiveOf({metadata, nested}).build());
        const Use used = useOf({"extract", scratch / "x.lfa", "TILPRJ!bomb", scratch / "out"});
        EXPECT_LT(used.seconds, kMaxSeconds) << size;
        EXPECT_LT(used.peak, 64 * kMiB) << size;
        EXPECT_EQ(used.exit, isLarge ? 3 : 0) << size;
        EXPECT_EQ(std::filesystem::exists(scratch / "out"), !isLarge);
        std::filesystem::remove(scratch / "out");
    }
}

/// More than an archive of its size may hold, although it says so itself and is sound.
TEST(Bombs, MoreThanOneCallUnpacks) {
    const Scratch scratch;
    const builder::Entry bomb("bomb", std::string((1UL << 30) + 1, '\0'), true);
    scratch.put("x.lfa", builder::archiveOf({builder::Entry("lfa.json", "{}"), bomb}).build());
    const std::string archive = scratch / "x.lfa", before = contentOf(archive);
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"extract", archive, "bomb", scratch / "out"},
          {"verify", archive},
          {"set-file", archive, "DCP", "a", ZR_SOURCE_DIR "/README.md"}}) {
        const Use used = useOf(command);
        EXPECT_EQ(used.exit, 3) << command[0];
        EXPECT_LT(used.seconds, kMaxSeconds) << command[0];
        EXPECT_LT(used.peak, 64 * kMiB) << command[0];
    }
    EXPECT_EQ(scratch.names(), std::vector<std::string>{"x.lfa"});
    EXPECT_TRUE(contentOf(archive) == before);
}
