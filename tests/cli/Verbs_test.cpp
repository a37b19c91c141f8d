// The tool as a user runs it: arguments in; exit code, data and messages out.
#include <gmock/gmock.h>

#include <filesystem>
#include <regex>

#include <msg/MsgCatalogue.h>
#include <platform/HTEQPlatformCAPI.h>
#include <text/HSTStringUtils.h>

#include "kit/Cases.h"
#include "kit/Run.h"
#include "kit/Scratch.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* kSample = "u77/u77_gen3x16_base_1.zdf";

Result tool(std::vector<std::string> arguments, const std::string& directory = ZR_SAMPLES) {
    arguments.insert(arguments.begin(), ZR_TOOL);
    return run(arguments, directory);
}

class Verbs : public testing::TestWithParam<std::string> {};

TEST_P(Verbs, DoWhatTheCasesSay) {
    cases::expectRuns(ZR_SOURCE_DIR "/tests/cases/cli/" + GetParam() + ".case", fs::path(ZR_TOOL).parent_path(),
                      {{"SAMPLES", ZR_SAMPLES}, {"SOURCE", ZR_SOURCE_DIR}});
}

std::vector<std::string> caseFiles() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(ZR_SOURCE_DIR "/tests/cases/cli"))
        names.push_back(entry.path().stem());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Cases, Verbs, testing::ValuesIn(caseFiles()),
                         [](const auto& info) { return std::regex_replace(info.param, std::regex("-"), "_"); });

TEST(Json, GivesTheBytesOfTheCFunctions) {
    const std::string file = std::string(ZR_SAMPLES) + "/" + kSample;
    for (const auto& [function, arguments] :
         {std::pair(&hteq_get_platform_json, std::vector<std::string>{"json", file}),
          std::pair(&hteq_get_short_platform_json, std::vector<std::string>{"json", file, "--short"})}) {
        char* const document = function(file.c_str());
        const Result result = tool(arguments);
        EXPECT_EQ(result.exit, 0);
        EXPECT_EQ(result.out, document);
        EXPECT_EQ(result.err, "");
        hteq_free_json_string(document);
    }
}

/// What the user must not read is an error that says so, wherever it is in the installation. Root may read everything, so
/// that the tool then runs as somebody else.
TEST(Emulate, ReportsAnInstallationThatCannotBeRead) {
    std::vector<std::string> command;
    if (::geteuid() == 0) command = {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"};
    command.push_back(ZR_TOOL);
    const auto with = [&command](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), command.begin(), command.end());
        return run(arguments);
    };
    if (with({"--version"}).exit != 0) GTEST_SKIP() << "a user other than root cannot run the tool of this build";
    const Scratch scratch;
    fs::permissions(scratch.str(), fs::perms::all);
    fs::copy(ZR_SAMPLES "/morwen", scratch / "tool", fs::copy_options::recursive);
    const std::string scripts = "tool/data/emulation/hw_em/scripts";
    for (const std::string& part : {std::string("tool"), scripts, scripts + "/memss", scripts + "/memss/run.tcl",
                                    scripts + "/platform_config", scripts + "/platform_config/default_prop.json"}) {
        const auto before = fs::status(scratch / part).permissions();
        fs::permissions(scratch / part, fs::perms::none);
        const Result result = with({"emulate", ZR_SAMPLES "/harrier/hw/harrier.cfa", scratch / "out.cfa", "--name",
                                    "memss", "--tool", scratch / "tool"});
        fs::permissions(scratch / part, before);
        EXPECT_EQ(result.exit, 4) << part;
        EXPECT_THAT(result.err, testing::ContainsRegex("[Pp]ermission denied")) << part;
        EXPECT_EQ(scratch.names(), std::vector<std::string>{"tool"});
    }
}

TEST(Help, EachVerbHasAnExampleThatRuns) {
    const Scratch scratch;
    fs::copy(ZR_SAMPLES, scratch / "samples", fs::copy_options::recursive);
    const std::string page = tool({"--reference", "markdown"}).out;
    const std::regex form("Example: `zr-platform (\\S+)");
    std::size_t count = 0;
    for (std::sregex_iterator it(page.begin(), page.end(), form), end; it != end; ++it, ++count) {
        const std::string help = tool({(*it)[1].str(), "--help"}).out;
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
        const std::string command = help.substr(help.rfind("zr-platform " + (*it)[1].str()));
        const Result result = run({"sh", "-c", fs::path(ZR_TOOL).parent_path() / command}, scratch / "samples");
        EXPECT_EQ(result.exit, 0) << command << "\n" << result.err;
        EXPECT_THAT(tool({"--help"}).out, HasSubstr((*it)[1].str()));
    }
    EXPECT_GE(count, 5U);
}

TEST(Help, PagesAreMadeFromTheVerbs) {
    EXPECT_EQ(tool({"--reference", "markdown"}).out, contentOf(ZR_SOURCE_DIR "/docs/zr-platform.md"))
        << "run ./dev docs";
    EXPECT_EQ(tool({"--reference", "findings"}).out, contentOf(ZR_SOURCE_DIR "/docs/validate.md"));
    EXPECT_EQ(tool({"--reference", "policy"}).out, contentOf(ZR_SOURCE_DIR "/docs/policy-rules.md"));
    EXPECT_EQ(tool({"--reference", "file-types"}).out, contentOf(ZR_SOURCE_DIR "/docs/file-types.md"));
    const Scratch scratch;
    scratch.put("zr.1", tool({"--reference", "man"}).out);
    const Result man = run({"man", "-l", "--warnings=w", scratch / "zr.1"}, ".", {{"MANPAGER", "cat"}});
    EXPECT_EQ(man.err, "");
    EXPECT_THAT(man.out, HasSubstr("--repair-hpfm"));
}

/// In a page, an indented line "$ COMMAND" is followed by its indented output; another one that begins with the tool's
/// name has no output there, and does not fail. Each page is worked through in a copy of the samples.
TEST(Pages, ShowWhatTheToolPrints) {
    const std::string path = "PATH=" + fs::path(ZR_TOOL).parent_path().string() + ":$PATH; ";
    std::vector<fs::path> pages{ZR_SOURCE_DIR "/README.md"};
    for (const auto& entry : fs::directory_iterator(ZR_SOURCE_DIR "/docs"))
        if (entry.path().filename() != "zr-platform.md") pages.push_back(entry.path());
    std::size_t count = 0;
    for (const fs::path& file : pages) {
        const Scratch scratch;
        fs::copy(ZR_SAMPLES, scratch / "samples", fs::copy_options::recursive);
        const auto runHere = [&](const std::string& command) {
            ++count;
            return run({"sh", "-c", path + "{ " + command + "\n} 2>&1"}, scratch / "samples");
        };
        std::istringstream page(contentOf(file));
        std::string line, command, output;
        const auto compare = [&] {
            if (command.empty()) return;
            EXPECT_EQ(runHere(command).out, output) << file << ": " << command;
            command.clear();
        };
        while (std::getline(page, line)) {
            const bool isShown = line.starts_with("    ");
            if (!isShown || line.starts_with("    $ ")) compare();
            if (line.starts_with("    $ ")) {
                command = line.substr(6);
                output.clear();
            } else if (isShown && !command.empty()) {
                output += line.substr(4) + "\n";
            } else if (line.starts_with("    zr-platform ")) {
                const Result result = runHere(line.substr(4));
                EXPECT_LE(result.exit, 1) << file << ": " << line << "\n" << result.out;
            }
        }
        compare();
    }
    EXPECT_GE(count, 80U);
}

/// The platform with these bytes in front of each value that is a text, in JSON or in an attribute.
std::string hostile(const std::string& text, const std::string& quoted, const std::string& bytes) {
    return std::regex_replace(text, std::regex(quoted + "(?=[A-Za-z])"), "$&" + bytes);
}

TEST(Output, HasNoHiddenCharacters) {
    const Scratch scratch;
    const std::string metadata = contentOf(ZR_SOURCE_DIR "/examples/u77/hw/u77.lfa/lfa.json");
    scratch.put("a/lfa.json", hostile(metadata, R"(": ")", "\\u001b[2J\\u0007\\n\\u009b\\u202e\\u200b\\u007f"));
    const std::string xml = "&#x85;&#x202e;&#x200b;&#x7f;";
    scratch.put("b/lfa.xml", hostile(contentOf(ZR_SOURCE_DIR "/tests/cases/cfa/platform.xml"), "[a-z]=\"", xml));
    for (const char* part : {"zdf/whole.zdf", "spfm/whole.spfm"}) {
        const std::string text = contentOf(ZR_SOURCE_DIR "/tests/cases/" + std::string(part));
        scratch.put(fs::path(part).filename(),
                    hostile(text, "(?:name|Name|escription|vendor|version|OS|os)=\"", xml));
    }
    for (const char* folder : {"a", "b"})
        EXPECT_EQ(tool({"pack", scratch / folder, scratch / folder + ".lfa", "--force"}).exit, 0);
    int seen = 0;
    for (const char* file : {"a.lfa", "b.lfa", "whole.zdf", "whole.spfm"})
        for (const std::vector<std::string>& verb : {std::vector<std::string>{"show"},
                                                     {"validate"},
                                                     {"validate", "--json"},
                                                     {"members"},
                                                     {"verify"},
                                                     {"members", "--ndjson"},
                                                     {"show", "--messages", "json"},
                                                     {"json", "--verbose"},
                                                     {"json", "--messages", "json"}}) {
            std::vector<std::string> arguments = verb;
            arguments.push_back(scratch / file);
            const Result result = tool(arguments);
            SCOPED_TRACE(std::string(file) + " " + verb[0] + " " + verb.back());
            for (const std::string& text : {verb[0] == "json" ? std::string() : result.out, result.err}) {
                for (const std::string& line : HSTStringUtils::split(text, '\n'))
                    EXPECT_EQ(HSTStringUtils::printable(line), line);
                seen +=
                    text.find("\\x1b[2J") != std::string::npos || text.find("\\xe2\\x80\\xae") != std::string::npos;
            }
        }
    EXPECT_GT(seen, 3) << "the texts are shown";
}

TEST(Explain, KnowsEachMessageAndEachFinding) {
    for (const MsgRow& row : kMsgCatalogue) {
        const std::string id(row.id), bare = id.substr(1, id.find('@', 1) - 1);
        const Result result = tool({"explain", bare});
        EXPECT_EQ(result.exit, 0);
        EXPECT_THAT(result.out, testing::AllOf(HasSubstr(std::string(row.text)), HasSubstr("What to do: "))) << id;
        EXPECT_EQ(tool({"explain", id}).out, result.out);
        EXPECT_EQ(tool({"explain", "@" + bare}).out, result.out);
    }
}

}  // namespace
