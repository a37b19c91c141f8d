// Large inputs, each in a process of its own: time and memory that they take, and how both grow.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "support/Platforms.h"
#include "support/Scratch.h"
#include "zip/ZipBuilder.h"

namespace {

constexpr double kMiB = 1024.0 * 1024.0, kMostSeconds = 10;

struct Use {
    int exit = -1;
    double seconds = 0;  ///< of the processor
    double peak = 0;     ///< bytes
};

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// The tool with these arguments, what it prints thrown away.
Use useOf(const std::vector<std::string>& arguments) {
    std::vector<char*> argv{const_cast<char*>(ZR_TOOL)};
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
        for (const int stream : {1, 2}) ::dup2(nowhere, stream);
        ::execv(ZR_TOOL, argv.data());
        ::_exit(127);
    }
    int status = 0;
    rusage used{};
    ::wait4(child, &status, 0, &used);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
            secondsOf(used.ru_utime) + secondsOf(used.ru_stime), static_cast<double>(used.ru_maxrss) * 1024};
}

/// `count` times `item`, in which "#" becomes the number.
std::string listOf(const std::string& item, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        if (i > 0) text += ',';
        std::size_t from = 0;
        for (auto mark = item.find('#'); mark != std::string::npos; from = mark + 1, mark = item.find('#', from)) {
            text.append(item, from, mark - from);
            text += std::to_string(i);
        }
        text.append(item, from);
    }
    return text;
}

/// A file that grows with a number, and what its text has of nodes.
struct Input {
    const char* what;
    const char* name;
    int most;      ///< of the number
    double nodes;  ///< for each
    std::function<std::string(int)> text;
    bool isPacked = true;  ///< the text is the metadata of an archive of that name
    int exit = 0;
};

const char kItem[] = R"({"name": "n#", "type": "t", "id": "#", "instRef": "i", "clockRef": "n#"})";

Input listInput(const char* key, int most, double nodes, const std::string& item) {
    return {key, "x.lfa", most, nodes,
            [key, item](int count) { return std::string("{\"") + key + "\": [" + listOf(item, count) + "]}"; }};
}

const std::vector<Input>& inputs() {
    static const std::vector<Input> all{
        {"values", "x.lfa", 990'000, 1, [](int n) { return "{\"unknown\": [" + listOf("1", n) + "]}"; }},
        {"keys", "x.lfa", 990'000, 1, [](int n) { return "{" + listOf("\"key#\": 1", n) + "}"; }},
        {"keys of a configuration", "x.lfa", 200'000, 3,
         [](int n) {
             return R"({"designIpInstances": [{"vlnv": "v", "configuration": {)" + listOf("\"key#\": 1", n) + "}}]}";
         }},
        {"one text", "x.lfa", 32, 0,
         [](int n) { return R"({"name": ")" + std::string(static_cast<std::size_t>(n) * 1'000'000, 'n') + "\"}"; }},
        {"blanks", "x.lfa", 33, 0,
         [](int n) { return "{" + std::string(static_cast<std::size_t>(n) * 1'000'000, ' ') + "}"; }},
        listInput("devices", 50'000, 8, R"({"name": "fpga#", "core": {"name": "c#", "instPath": "p#"}})"),
        listInput("memories", 50'000, 10,
                  R"({"name": "m#", "type": "ddr#", "size": "4 GB", "configParams": [{"name": "a", "value": "b"}]})"),
        listInput("interfaces", 50'000, 6, kItem),
        listInput("files", 50'000, 6, R"({"name": "f#", "type": "DCP#"})"),
        listInput("systemClocks", 50'000, 10, kItem),
        listInput(
            "busInterfaces", 50'000, 14,
            R"({"name": "b#", "mode": "Master", "spTag": "t#", "clockRef": "n#", "busTypeRef": "x", "addressSegments": [{"name": "s#", "spTag": "DDR[#]"}]})"),
        listInput("nocConnectivity", 50'000, 8, R"({"instRef": "i#", "busInterfaces": [{"name": "b#"}]})"),
        listInput("designIpInstances", 50'000, 8, R"({"vlnv": "v#", "instance": "i", "configuration": {"a#": 1}})"),
        listInput("reconfigPartitionIDs", 50'000, 6, R"({"designID": "#", "nodeID": "#"})"),
        listInput("tilPartitions", 50'000, 6, R"({"tilInst": "t#", "numColumns": "#"})"),
        listInput("featureRoms", 20'000, 24,
                  R"({"majorVersion": "#", "vbnvName": "v#", "featureBitMap": [{"value": "1"}]})"),
        listInput("ipParameters", 50'000, 6, R"({"name": "n#", "value": "v#"})"),
        listInput("resources", 50'000, 6, R"({"type": "LUT", "count": "#"})"),
        listInput("zuncCompileXPSwitches", 200'000, 2, "\"s#\""),
        {"pBlocks", "x.lfa", 50'000, 12,
         [](int n) {
             return R"({"devices": [{"name": "fpga0", "core": {"availableResources": {"pBlocks": [)" +
                    listOf(R"({"name": "p#", "validSlrs": ["s#"], "resources": [{"name": "r#", "value": "1"}]})", n) +
                    "]}}}]}";
         }},
        {"software", "x.spfm", 30'000, 12,
         [](int n) {
             std::string text =
                 "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='v' teq:library='l' teq:name='n' "
                 "teq:version='1.0'><teq:description>d</teq:description><teq:systemConfigurations>";
             for (int i = 0; i < n; ++i)
                 text += "<teq:configuration teq:name='c" + std::to_string(i) +
                         "' teq:displayName='C'><teq:description/></teq:configuration>";
             return text + "</teq:systemConfigurations></teq:platform>";
         },
         false},
        {"an open tag", "x.zdf", 30, 0,
         [](int n) { return "<" + std::string(static_cast<std::size_t>(n) * 1'000'000, 'a'); }, false, 3},
        {"open elements", "x.zdf", 30, 0,
         [](int n) {
             std::string text;
             for (int i = 0; i < n * 300'000; ++i) text += "<a>";
             return text;
         },
         false, 3},
        {"members", "x.lfa", 60'000, 1,
         [](int n) {
             builder::Zip zip;
             zip.entries = {builder::Entry("lfa.json", "{}")};
             for (int i = 0; i < n; ++i) zip.entries.emplace_back(std::to_string(i) + "/a/name/of/usual/length.dcp");
             return zip.build();
         },
         false},
    };
    return all;
}

class Growth : public testing::TestWithParam<std::size_t> {
protected:
    /// Writes the file for `number`; gives the size of the text in bytes.
    std::size_t write(const Input& input, int number) const {
        const std::string text = input.text(number);
        std::string bytes;
        if (input.isPacked) {
            builder::Zip zip;
            zip.entries = {builder::Entry("lfa.json", text, true)};
            bytes = zip.build();
        }
        scratch_.put(input.name, input.isPacked ? bytes : text);
        return text.size();
    }
    Scratch scratch_;
};

}  // namespace

TEST_P(Growth, IsLinear) {
    const Input& input = inputs()[GetParam()];
    SCOPED_TRACE(input.what);
    double before = 0;
    for (const int part : {4, 1}) {
        const int number = input.most / part;
        const auto size = static_cast<double>(write(input, number));
        Use used = useOf({"json", scratch_ / input.name});
        for (int again = 0; again < 2; ++again)
            used.seconds = std::min(used.seconds, useOf({"json", scratch_ / input.name}).seconds);
        EXPECT_EQ(used.exit, input.exit);
        EXPECT_LT(used.seconds, kMostSeconds);
        EXPECT_LT(used.peak, 12 * size + 700 * input.nodes * number + 64 * kMiB) << size;
        // n log n for four times as much is below 5; a small time tells nothing.
        if (part == 1 && used.seconds > 0.2) {
            EXPECT_LT(used.seconds / before, 6.5) << used.seconds;
        }
        std::printf("  %-24s %8d: %10.0f bytes, %.2f s, %.0f MiB\n", input.what, number, size, used.seconds,
                    used.peak / kMiB);
        before = used.seconds;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Growth, testing::Range<std::size_t>(0, inputs().size()));

/// A thousandfold at each of two levels: refused by what comes out, not by what is promised.
TEST(Bombs, TwoLevels) {
    const Scratch scratch;
    for (const int size : {1'000'000, 1'000'000'000}) {
        builder::Zip inner, outer;
        inner.entries = {builder::Entry("bomb", std::string(static_cast<std::size_t>(size), '\0'), true)};
        const std::string packed = inner.build();
        // The nested archive is stored in the first case and packed again in the second.
        outer.entries = {builder::Entry("lfa.json", R"({"files": [{"type": "TILPRJ", "name": "x.tilprj"}]})"),
                         builder::Entry("x.tilprj", packed, size > 1'000'000)};
        scratch.put("x.lfa", outer.build());
        const Use used = useOf({"extract", scratch / "x.lfa", "TILPRJ!bomb", scratch / "out"});
        EXPECT_LT(used.seconds, kMostSeconds) << size;
        EXPECT_LT(used.peak, 64 * kMiB) << size;
        EXPECT_EQ(used.exit, 0) << size;
        EXPECT_EQ(std::filesystem::file_size(scratch / "out"), static_cast<std::uintmax_t>(size));
        std::filesystem::remove(scratch / "out");
    }
}

/// More than one call may unpack, although the archive says so itself and is sound.
TEST(Bombs, MoreThanOneCallUnpacks) {
    const Scratch scratch;
    builder::Zip zip;
    zip.entries = {builder::Entry("lfa.json", "{}"),
                   builder::Entry("bomb", std::string((1UL << 30) + 1, '\0'), true)};
    scratch.put("x.lfa", zip.build());
    const Use used = useOf({"extract", scratch / "x.lfa", "bomb", scratch / "out"});
    EXPECT_EQ(used.exit, 3);
    EXPECT_LT(used.seconds, kMostSeconds);
    EXPECT_LT(used.peak, 64 * kMiB);
    EXPECT_EQ(scratch.names(), std::vector<std::string>{"x.lfa"});
}
