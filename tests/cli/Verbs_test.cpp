// The tool as a user runs it: arguments in; exit code, data and words out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <filesystem>
#include <fstream>
#include <regex>

#include <msg/MsgCatalogue.h>
#include <platform/HTEQPlatformCAPI.h>

#include "kit/Run.h"
#include "kit/Scratch.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::MatchesRegex;

constexpr const char* kSample = "u77/u77_gen3x16_base_1.zdf";

Result tool(std::vector<std::string> arguments, const std::string& directory = ZR_SAMPLES) {
    arguments.insert(arguments.begin(), ZR_TOOL);
    return run(arguments, directory);
}

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

TEST(Json, TakesABareNameInTheFilesOwnDirectory) {
    const std::string directory = std::string(ZR_SAMPLES) + "/u77";
    const Result result = tool({"json", "u77_gen3x16_base_1.zdf"}, directory);
    EXPECT_EQ(result.exit, 0);
    EXPECT_THAT(result.out, HasSubstr("\"directory\": \".\""));
    EXPECT_EQ(tool({"json", "u77.lfa"}, directory + "/hw").exit, 0);
    EXPECT_EQ(tool({"show", "u77.spfm"}, directory + "/sw").exit, 0);
    EXPECT_EQ(tool({"members", "u77.lfa"}, directory + "/hw").exit, 0);
}

TEST(Help, EachVerbHasAnExampleThatRuns) {
    const Scratch scratch;
    const std::string page = tool({"--reference", "markdown"}).out;
    const std::regex form("Example: `zr-platform (.*)`");
    std::size_t count = 0;
    for (std::sregex_iterator it(page.begin(), page.end(), form), end; it != end; ++it, ++count) {
        const std::string command = std::string(ZR_TOOL) + " " + (*it)[1].str();
        const Result result = run({"sh", "-c", command}, ZR_SAMPLES);
        EXPECT_EQ(result.exit, 0) << command << "\n" << result.err;
        const std::string verb = (*it)[1].str().substr(0, (*it)[1].str().find(' '));
        EXPECT_THAT(tool({verb, "--help"}).out, HasSubstr("zr-platform " + (*it)[1].str()));
        EXPECT_THAT(tool({"--help"}).out, HasSubstr(verb));
    }
    EXPECT_GE(count, 5U);
}

TEST(Help, PagesAreMadeFromTheVerbs) {
    EXPECT_EQ(tool({"--reference", "markdown"}).out, contentOf(ZR_SOURCE_DIR "/docs/zr-platform.md"))
        << "./dev docs writes it anew";
    EXPECT_EQ(tool({"--reference", "findings"}).out, contentOf(ZR_SOURCE_DIR "/docs/validate.md"));
    const Scratch scratch;
    scratch.put("zr.1", tool({"--reference", "man"}).out);
    const Result man = run({"man", "-l", "--warnings=w", scratch / "zr.1"}, ".", {{"MANPAGER", "cat"}});
    EXPECT_EQ(man.err, "");
    EXPECT_THAT(man.out, HasSubstr("--repair-hpfm"));
    scratch.put("zr.bash", tool({"--reference", "bash"}).out);
    const Result completion = run({"bash", "-c",
                                   "source " + scratch / "zr.bash" +
                                       "; COMP_WORDS=(zr-platform extract --re); "
                                       "COMP_CWORD=2; _zr_platform; echo ${COMPREPLY[@]}"});
    EXPECT_EQ(completion.out, "--repair-hpfm\n");
}

TEST(Show, TellsWhatAPlatformHolds) {
    const Result result = tool({"show", kSample});
    EXPECT_EQ(result.exit, 0) << result.err;
    for (const char* expected : {"Platform u77_gen3x16_base_1", "Fennick", "tzu77-", "clocks", "scalable", "reserved",
                                 "DDR", "HBM", "warning: The HBM instance", "interfaces that a linker can attach to",
                                 "processor groups", "linux", "boot images", "files in the archive", "HPFM"})
        EXPECT_THAT(result.out, HasSubstr(expected));
}

TEST(Show, SaysWhatCanBeReadWhenAFileIsMissing) {
    const Scratch scratch;
    fs::copy(std::string(ZR_SAMPLES) + "/u77", scratch / "u77", fs::copy_options::recursive);
    fs::remove(scratch / "u77/sw/u77.spfm");
    const Result result = tool({"show", scratch / "u77/u77_gen3x16_base_1.zdf"});
    EXPECT_EQ(result.exit, 3);
    EXPECT_THAT(result.out, HasSubstr("clocks"));
    EXPECT_THAT(result.out, HasSubstr("no such file"));
    EXPECT_THAT(result.err, HasSubstr("u77.spfm: error: no such file"));
}

TEST(Show, TellsTilePartitionsAndReconfigurableOnes) {
    const Result heron = tool({"show", "heron/heron.zdf"});
    EXPECT_EQ(heron.exit, 0) << heron.err;
    EXPECT_THAT(heron.out, HasSubstr("tile partitions"));
    const Result osprey = tool({"show", "osprey/osprey.zdf"});
    EXPECT_EQ(osprey.exit, 0) << osprey.err;
    EXPECT_THAT(osprey.out, HasSubstr("(default)"));
    EXPECT_THAT(tool({"show", kSample}).out, HasSubstr("Emulation\n"));
}

TEST(Members, AreListedInEachForm) {
    const std::string archive = "u77/hw/u77.lfa";
    EXPECT_THAT(tool({"members", archive}).out, HasSubstr("lfa.json\n"));
    EXPECT_THAT(tool({"members", archive, "--ndjson"}).out, HasSubstr("\"name\":\"lfa.json\""));
    const Result json = tool({"members", archive, "--json"});
    EXPECT_THAT(json.out, testing::StartsWith("{\"schema\":\"urn:torvane:zr-platform:member:1\""));
    EXPECT_THAT(json.out, MatchesRegex(".*\"size\":[0-9]+,.*\n"));
}

TEST(Pack, GivesTheSameBytesEachTime) {
    const Scratch scratch;
    const std::string source = std::string(ZR_SAMPLES) + "/src/u77.lfa";
    ASSERT_EQ(tool({"pack", source, scratch / "a.lfa"}).exit, 0);
    fs::copy(source, scratch / "moved", fs::copy_options::recursive);
    const Result second =
        run({"sh", "-c",
             "umask 077; touch -d 2001-01-01 moved/lfa.json; chmod 600 moved/lfa.json; TZ=Asia/Tokyo " ZR_TOOL
             " pack moved b.lfa"},
            scratch.str());
    ASSERT_EQ(second.exit, 0) << second.err;
    EXPECT_EQ(contentOf(scratch / "a.lfa"), contentOf(scratch / "b.lfa"));
    EXPECT_FALSE(contentOf(scratch / "a.lfa").empty());
}

TEST(Pack, NestsFoldersThatAreArchives) {
    const Scratch scratch;
    scratch.put("in/project.tilprj/deep/inner.txt", "inner\n");
    ASSERT_EQ(tool({"pack", scratch / "in", scratch / "out.zip"}).exit, 0);
    const Result inner = tool({"extract", scratch / "out.zip", "project.tilprj!deep/inner.txt", "-"});
    EXPECT_EQ(inner.out, "inner\n") << inner.err;
}

TEST(Pack, RefusesWhatIsIncompleteAndWritesNothing) {
    const Scratch scratch;
    scratch.put("in/lfa.json", R"({"vendor": "v", "files": [{"name": "gone.tcl", "type": "PRE_OPT_TCL"}]})");
    const Result refused = tool({"pack", scratch / "in", scratch / "x.lfa"});
    EXPECT_EQ(refused.exit, 3);
    EXPECT_THAT(refused.err, HasSubstr("gone.tcl"));
    EXPECT_EQ(scratch.names(), std::vector<std::string>({"in"}));
    EXPECT_EQ(tool({"pack", scratch / "in", scratch / "x.lfa", "--force"}).exit, 0);
    fs::create_symlink("/etc/passwd", scratch / "in/link");
    EXPECT_NE(tool({"pack", scratch / "in", scratch / "y.lfa", "--force"}).exit, 0);
    EXPECT_EQ(scratch.names(), std::vector<std::string>({"in", "x.lfa"}));
}

TEST(SetFile, NamesWhatTheMetadataLosesAndRefuses) {
    const Scratch scratch;
    const std::string archive = scratch / "x.lfa", source = scratch.put("pre.tcl", "puts hello\n");
    scratch.put("in/lfa.json",
                R"({"vendor": "v", "makersOwn": {"key": 1}, "files": [{"name": "a", "type": "DCP"}],
                    "memories": [{"name": "m", "configParams": [{"name": "TIMEPERIOD_PS", "value": "1"},
                                                                {"name": "CAS_LATENCY", "value": "2"}]}]})");
    scratch.put("in/a", "checkpoint");
    ASSERT_EQ(tool({"pack", scratch / "in", archive}).exit, 0);
    const std::string before = contentOf(archive);
    const Result refused = tool({"set-file", archive, "PRE_OPT_TCL", "tcl/pre.tcl", source, "--strip-paths"});
    EXPECT_EQ(refused.exit, 1);
    EXPECT_THAT(refused.err, HasSubstr("makersOwn.key: lost"));
    EXPECT_EQ(std::count(refused.err.begin(), refused.err.end(), '\n'), 2) << "the one key, and what to do";
    EXPECT_EQ(tool({"set-file", archive, "PRE_OPT_TCL", "tcl/pre.tcl", source, "--dry-run", "--force"}).exit, 0);
    EXPECT_EQ(contentOf(archive), before);

    ASSERT_EQ(tool({"set-file", archive, "PRE_OPT_TCL", "tcl/pre.tcl", source, "--force", "--strip-paths"}).exit, 0);
    EXPECT_EQ(tool({"extract", archive, "PRE_OPT_TCL", "-"}).out, "puts hello\n");
    EXPECT_EQ(tool({"verify", archive, "--require-digest"}).exit, 0);
    const std::string metadata = tool({"extract", archive, "lfa.json", "-"}).out;
    EXPECT_THAT(metadata, testing::Not(HasSubstr("platformFile")));
    EXPECT_THAT(metadata, HasSubstr("\"tcl\\/pre.tcl\""));
    scratch.put("pre.tcl", "puts again\n");
    const Result again = tool({"set-file", archive, "PRE_OPT_TCL", "tcl/pre.tcl", source, "--strip-paths"});
    EXPECT_EQ(again.exit, 0) << "what the library wrote loses nothing: " << again.err;
    EXPECT_EQ(tool({"extract", archive, "PRE_OPT_TCL", "-"}).out, "puts again\n");
    EXPECT_EQ(scratch.names(), std::vector<std::string>({"in", "pre.tcl", "x.lfa"})) << "no stray file";
}

TEST(SetFile, RefusesWhatItCannotPut) {
    const Scratch scratch;
    const std::string archive = scratch / "x.lfa", source = scratch.put("s", "bytes");
    scratch.put("in/lfa.json", "{}");
    ASSERT_EQ(tool({"pack", scratch / "in", archive}).exit, 0);
    const std::string before = contentOf(archive);
    mkfifo((scratch / "pipe").c_str(), 0600);
    for (const auto& [member, from] : std::vector<std::pair<std::string, std::string>>{{"../out", source},
                                                                                       {"/abs", source},
                                                                                       {"m", archive},
                                                                                       {"m", scratch / "gone"},
                                                                                       {"m", scratch / "pipe"},
                                                                                       {"m", scratch.str()}}) {
        const Result result = tool({"set-file", archive, "DCP", member, from, "--force"});
        EXPECT_NE(result.exit, 0) << member << " " << from;
        EXPECT_NE(result.err, "");
        EXPECT_EQ(contentOf(archive), before);
    }
    scratch.put("in/alt_lfa.json", "{}");
    ASSERT_EQ(tool({"pack", scratch / "in", scratch / "alt.lfa"}).exit, 0);
    EXPECT_THAT(tool({"set-file", scratch / "alt.lfa", "DCP", "m", source}).err, HasSubstr("alt_lfa.json"));
}

TEST(SetFile, LeavesTheArchiveWhenTheDiskIsFull) {
    const Scratch scratch;
    const std::string archive = scratch / "x.lfa";
    scratch.put("in/lfa.json", "{}");
    ASSERT_EQ(tool({"pack", scratch / "in", archive}).exit, 0);
    std::string noise;
    for (std::uint32_t n = 1; noise.size() < 100'000; n = n * 1664525 + 1013904223)
        noise += static_cast<char>(n >> 24);
    const std::string before = contentOf(archive), source = scratch.put("s", noise);
    // A file that may grow to 8 KiB stands for a disk that has no more.
    const Result full = run({"sh", "-c", "trap '' XFSZ; ulimit -f 16; exec \"$@\"", "sh", ZR_TOOL, "set-file",
                             archive, "DCP", "m", source, "--force", "--strip-paths"});
    EXPECT_EQ(full.exit, 4) << full.err;
    EXPECT_THAT(full.err, HasSubstr("x.lfa"));
    EXPECT_TRUE(contentOf(archive) == before);
    EXPECT_EQ(scratch.names(), std::vector<std::string>({"in", "s", "x.lfa"})) << "no stray file";
}

TEST(SetFile, RefusesAnArchiveWithXmlMetadataOnly) {
    const Scratch scratch;
    const std::string archive = scratch / "harrier.cfa", source = scratch.put("pre.tcl", "puts hello\n");
    fs::copy(std::string(ZR_SAMPLES) + "/harrier/hw/harrier.cfa", archive);
    const std::string before = contentOf(archive);
    const Result refused = tool({"set-file", archive, "PRE_OPT_TCL", "tcl/pre.tcl", source});
    EXPECT_EQ(refused.exit, 1);
    EXPECT_THAT(refused.err,
                HasSubstr("harrier.cfa: the metadata is XML only: a new member cfa.json would be read in "
                          "the place of cfa.xml"));
    EXPECT_EQ(contentOf(archive), before);
    EXPECT_EQ(tool({"set-file", archive, "PRE_OPT_TCL", "tcl/pre.tcl", source, "--force"}).exit, 0);
    EXPECT_EQ(tool({"extract", archive, "PRE_OPT_TCL", "-"}).out, "puts hello\n");
    EXPECT_EQ(tool({"extract", archive, "PRE_OPT_TCL", "-", "--type"}).exit, 0);
}

TEST(XmlMetadata, IsReadAsAnyOther) {
    const std::string archive = "harrier/hw/harrier.cfa";
    const Result shown = tool({"show", archive});
    EXPECT_EQ(shown.exit, 0) << shown.err;
    for (const char* expected : {"torvane:harrier:gen3x16_dyn:5.2", "unified, expandable", "tzh95-fsga2577-2-e",
                                 "pblock_dyn", "PL 1", "S_AXI_DDR", "EMU_XML"})
        EXPECT_THAT(shown.out, HasSubstr(expected));
    EXPECT_EQ(tool({"json", archive, "--metadata=xml"}).out, tool({"json", archive}).out);
    EXPECT_THAT(tool({"members", archive}).out, HasSubstr("cfa.xml\n"));
    EXPECT_EQ(tool({"verify", archive}).out, archive + ": good, digest: valid\n");
    EXPECT_EQ(tool({"extract", archive, "HPFM", "-"}).out,
              contentOf(ZR_SOURCE_DIR "/examples/harrier/hw/harrier.cfa/hpfm/harrier.hpfm"));
    EXPECT_THAT(tool({"json", "u77/hw/u77.lfa", "--metadata=xml"}).err,
                HasSubstr("the archive has no metadata member lfa.xml"));
}

TEST(ToXml, WritesAFileOrToStandardOutput) {
    const Scratch scratch;
    const std::string expected = contentOf(ZR_SOURCE_DIR "/examples/expected/osprey.xml");
    EXPECT_EQ(tool({"to-xml", "osprey/hw/osprey_rm.lfa"}).out, expected);
    EXPECT_EQ(tool({"to-xml", "osprey/osprey.zdf", "-"}).out, expected) << "its default partition";
    const std::string out = scratch / "out.xml";
    EXPECT_EQ(tool({"to-xml", "osprey/hw/osprey_rm.lfa", out}).exit, 0);
    EXPECT_EQ(contentOf(out), expected);
    EXPECT_EQ(tool({"to-xml", "u77/hw/u77.lfa", out}).exit, 1) << "is there already";
    EXPECT_EQ(contentOf(out), expected);
    EXPECT_EQ(tool({"to-xml", "u77/hw/u77.lfa", out, "--force"}).exit, 0);
    EXPECT_EQ(contentOf(out), contentOf(ZR_SOURCE_DIR "/examples/expected/u77.xml"));
    EXPECT_EQ(scratch.names(), std::vector<std::string>({"out.xml"}));
}

TEST(ToXml, SaysWhyThereIsNone) {
    const Scratch scratch;
    scratch.put("in/lfa.json", "{}");
    ASSERT_EQ(tool({"pack", scratch / "in", scratch / "x.lfa"}).exit, 0);
    const std::pair<std::vector<std::string>, std::pair<int, const char*>> cases[] = {
        {{"to-xml", scratch / "x.lfa", scratch / "out"},
         {3, "x.lfa: error: there is no XML form of it: <Devices> needs"}},
        {{"to-xml", "lone/lorica.spfm"}, {3, "there is no hardware platform in it"}},
        {{"to-xml", "u77/hw/u77.lfa", scratch / "no/out"}, {4, "no such directory"}},
    };
    for (const auto& [arguments, expected] : cases) {
        const Result result = tool(arguments);
        EXPECT_EQ(result.exit, expected.first);
        EXPECT_THAT(result.err, HasSubstr(expected.second));
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(scratch.names(), std::vector<std::string>({"in", "x.lfa"}));
}

TEST(Verify, TellsWhichMemberDiffers) {
    const Scratch scratch;
    const std::string archive = scratch / "x.lfa";
    scratch.put("in/lfa.json", "{\"vendor\": \"v\"}");
    scratch.put("in/data.bin", std::string(1000, 'a') + "end");
    ASSERT_EQ(tool({"pack", scratch / "in", archive}).exit, 0);
    const Result good = tool({"verify", archive});
    EXPECT_EQ(good.exit, 0);
    EXPECT_EQ(good.out, archive + ": good, digest: valid\n");

    run({"zip", "-q", "-j", archive, scratch.put("data.bin", "other bytes")});
    const Result changed = tool({"verify", archive, "--ndjson"});
    EXPECT_EQ(changed.exit, 1);
    EXPECT_THAT(changed.out, HasSubstr("\"good\":false"));
    EXPECT_THAT(changed.out, HasSubstr("\"member\":\"data.bin\""));

    const std::string plain = scratch / "plain.zip";
    run({"zip", "-q", "-j", plain, scratch / "data.bin"});
    EXPECT_EQ(tool({"verify", plain}).out, plain + ": good, digest: none\n");
    const Result unstamped = tool({"verify", plain, "--require-digest"});
    EXPECT_EQ(unstamped.exit, 1);
    EXPECT_EQ(unstamped.out, plain + ": not stamped, digest: none\n");
    const Result two = tool({"verify", plain, scratch.put("text.zip", "no archive")});
    EXPECT_EQ(two.exit, 3) << "the worst of all, and the good one is told";
    EXPECT_THAT(two.out, HasSubstr("plain.zip: good"));
    EXPECT_THAT(two.err, HasSubstr("text.zip: error: "));
}

TEST(Validate, PrintsFindingsAsLinesAndAsRecords) {
    const Scratch scratch;
    scratch.put("in/lfa.json", "{\"board\": 1,\n \"memories\": [{\"size\": \"1\\u001b[31mMB\"}]}");
    const std::string archive = scratch / "x.lfa";
    ASSERT_EQ(tool({"pack", scratch / "in", archive}).exit, 0);
    const Result lines = tool({"validate", archive});
    EXPECT_EQ(lines.exit, 1);
    EXPECT_EQ(lines.out, archive +
                             "!lfa.json:1:11: error: board: a single value stands where an object is read "
                             "[wrong-shape]\n" +
                             archive +
                             "!lfa.json:2:15: warning: memories[0]: the size \"1\\x1b[31mMB\" counts as 0; a "
                             "number and GB count, as in \"16GB\" [uncounted-memory]\n");
    const Result records = tool({"validate", archive, "--json"});
    EXPECT_EQ(records.exit, 1);
    EXPECT_THAT(records.out, testing::StartsWith("{\"schema\":\"urn:torvane:zr-platform:finding:1\""));
    EXPECT_THAT(records.out,
                HasSubstr("\"member\":\"lfa.json\",\"line\":1,\"column\":11,\"severity\":\"error\",\"name\":"
                          "\"wrong-shape\",\"element\":\"board\""));
}

TEST(Validate, ExitsByTheWorst) {
    const Scratch scratch;
    const std::string clean = scratch.put("clean.json", "{}"), gone = scratch / "gone.zdf";
    const std::string warned = scratch.put("warned.json", "{\"usesPR\": \"yes\"}");
    const std::string wrong = scratch.put("wrong.json", "{\"board\": []}x");
    const struct {
        std::vector<std::string> arguments;
        int exit;
    } cases[] = {
        {{clean}, 0},
        {{warned}, 0},
        {{warned, "--fail-on=error"}, 0},
        {{warned, "--fail-on=warning"}, 1},
        {{clean, "--fail-on=warning"}, 0},
        {{clean, wrong, warned}, 1},
        {{gone}, 3},
        {{wrong, gone, clean, "--ndjson"}, 3},
    };
    for (const auto& c : cases) {
        std::vector<std::string> arguments = c.arguments;
        arguments.insert(arguments.begin(), "validate");
        EXPECT_EQ(tool(arguments).exit, c.exit) << testing::PrintToString(arguments);
    }
    EXPECT_THAT(tool({"validate", gone, wrong}).out,
                testing::AllOf(HasSubstr("gone.zdf: error: "), HasSubstr("[not-json]")))
        << "one bad file does not spoil the list";
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
    const Result finding = tool({"explain", "repeated-clock-id"});
    EXPECT_THAT(finding.out, testing::StartsWith("repeated-clock-id (warning)\n"));
    for (const char* part : {"What to do: ", "bad, lfa.json:", "good:", "    {\"systemClocks\""})
        EXPECT_THAT(finding.out, HasSubstr(part));
    const Result unknown = tool({"explain", "repeated-clock-ids"});
    EXPECT_EQ(unknown.exit, 1);
    EXPECT_EQ(unknown.out, "");
    EXPECT_THAT(unknown.err, HasSubstr("repeated-clock-id"));
}

TEST(Schema, PrintsEachFormatAndRefusesOthers) {
    for (const char* format : {"zdf", "spfm", "hpfm", "cfa", "emu"}) {
        const Result result = tool({"schema", format});
        EXPECT_EQ(result.exit, 0);
        EXPECT_THAT(result.out, HasSubstr("</xs:schema>\n")) << format;
    }
    const Result unknown = tool({"schema", "json"});
    EXPECT_EQ(unknown.exit, 2);
    EXPECT_THAT(unknown.err, HasSubstr("zdf, spfm, hpfm, cfa, emu"));
}

TEST(Extract, TakesMembersTypesAndNestedMembers) {
    const Scratch scratch;
    const std::string archive = "u77/hw/u77.lfa";
    const std::string source = std::string(ZR_SAMPLES) + "/src/u77.lfa/";
    EXPECT_EQ(tool({"extract", archive, "lfa.json", "-"}).out, contentOf(source + "lfa.json"));
    ASSERT_EQ(tool({"extract", archive, "HPFM", scratch / "plain.hpfm"}).exit, 0);
    ASSERT_EQ(tool({"extract", archive, "HPFM", scratch / "mended.hpfm", "--repair-hpfm"}).exit, 0);
    EXPECT_EQ(contentOf(scratch / "plain.hpfm"), contentOf(source + "hpfm/u77.hpfm"));
    const std::string segment = R"(kp:baseName="HBM_MEM%" kp:index="%" kp:memoryInstance="hbm_inst" kp:auto=)";
    const auto bank = [&](const char* n) { return std::regex_replace(segment, std::regex("%"), n); };
    EXPECT_THAT(contentOf(scratch / "plain.hpfm"), HasSubstr(bank("30") + "\"true\""));
    EXPECT_THAT(contentOf(scratch / "mended.hpfm"), HasSubstr(bank("30") + "\"preferred\""));
    EXPECT_THAT(contentOf(scratch / "mended.hpfm"), HasSubstr(bank("31") + "\"false\"")) << "not assignable";
    EXPECT_EQ(tool({"extract", archive, "lfa.json", scratch / "plain.hpfm"}).exit, 1) << "is there already";
    EXPECT_EQ(tool({"extract", archive, "lfa.json", scratch / "plain.hpfm", "--force"}).exit, 0);
    EXPECT_EQ(contentOf(scratch / "plain.hpfm"), contentOf(source + "lfa.json"));
    const std::string inner = "tilarchive/morwen/logical_arch_til.larch";
    EXPECT_EQ(tool({"extract", "heron/hw/heron.cfa", "TILPRJ!" + inner, "-"}).out,
              contentOf(ZR_SOURCE_DIR "/examples/heron/hw/heron.cfa/til/heron.tilprj/" + inner));
    const Result unknown = tool({"extract", archive, "lfa.jsn", scratch / "x"});
    EXPECT_EQ(unknown.exit, 1);
    EXPECT_THAT(unknown.err, HasSubstr("lfa.json")) << "the nearest names";
    EXPECT_EQ(scratch.names(), std::vector<std::string>({"mended.hpfm", "plain.hpfm"}));
}

struct Bad {
    const char* name;
    const char* content;
    int exit;
    const char* error;  ///< behind the file's name, as a regular expression
};

const Bad kBad[] = {
    {"gone.zdf", nullptr, 3, ": error: no such file"},
    {"gone.lfa", nullptr, 3, ": error: hardware platform file '.*gone.lfa' does not exist.*"},
    {"gone.spfm", nullptr, 3, ": error: the software platform file does not exist.*"},
    {"empty.zdf", "", 3, ":[0-9]+:[0-9]+: error: .*"},
    {"text.zdf", "no XML\n", 3, ":1:[0-9]+: error: .*"},
    {"doctype.zdf", "<!DOCTYPE a [<!ENTITY b 'c'>]>\n<a/>", 3, ":1:[0-9]+: error: .*"},
    {"root.zdf", "<?xml version='1.0'?>\n\n<platform/>\n", 3, ":3:1: error: .*platform.*"},
    {"attribute.zdf", "<t:platform xmlns:t='urn:torvane:teq:platform:1.0' t:vendor='v'\n t:bad=''/>", 3,
     ":[12]:[0-9]+: error: .*"},
    {"deep.spfm", "(100,000 open elements)", 3, ":1:1: error: .*"},
    {"empty.spfm", "", 3, ":[0-9]+:[0-9]+: error: .*"},
    {"empty.lfa", "", 3, ": error: .*"},
    {"text.lfa", "no archive, but long enough to have an end record", 3, ": error: .*"},
    {"CAPITAL.CFA", "PK", 3, ":1:[0-9]+: error: .*"},
    {"noextension", "", 3, ":[0-9]+:[0-9]+: error: .*"},
};

std::string openElements() {
    std::string text;
    for (int i = 0; i < 100'000; ++i) text += "<a>";
    return text;
}

TEST(BadInput, IsOneLineThatTellsFileAndPlace) {
    const Scratch scratch;
    for (const Bad& bad : kBad) {
        SCOPED_TRACE(bad.name);
        if (bad.content) scratch.put(bad.name, bad.name == std::string("deep.spfm") ? openElements() : bad.content);
        const Result result = tool({"json", scratch / bad.name});
        EXPECT_EQ(result.exit, bad.exit);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(std::regex_match(result.err, std::regex(".*" + std::string(bad.name) + bad.error + "\n")))
            << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
    }
}

TEST(BadInput, OfAMemberTellsItsLine) {
    const Scratch scratch;
    const std::string deep(200'000, '[');
    const std::pair<std::string, const char*> cases[] = {
        {"{\n\"a\": ,\n}", "!lfa\\.json:2:6: error: .*"},
        {"{\"devices\": [{\"name\": \"fpga0\"}]}", "!lfa\\.json: error: .*core.*"},
        {"{\"tilHardware\": {}}", "!lfa\\.json: error: .*architecture.*"},
        {deep, "!lfa\\.json:1:[0-9]+: error: .*192.*"},
        {"", ".*error: .*"},
    };
    for (const auto& [content, error] : cases) {
        SCOPED_TRACE(content.substr(0, 40));
        scratch.put("in/lfa.json", content);
        ASSERT_EQ(tool({"pack", scratch / "in", scratch / "x.lfa", "--force"}).exit, 0);
        const Result result = tool({"json", scratch / "x.lfa"});
        EXPECT_EQ(result.exit, 3);
        EXPECT_TRUE(std::regex_match(result.err, std::regex(".*x\\.lfa" + std::string(error) + "\n"))) << result.err;
    }
}

TEST(BadInput, OfXmlMetadataTellsItsLine) {
    const Scratch scratch;
    const std::string good = contentOf(ZR_SOURCE_DIR "/examples/lone/dunlin_pre.cfa/cfa.xml");
    const auto with = [&](const char* part, const char* replacement) {
        return std::regex_replace(good, std::regex(part), replacement);
    };
    const std::pair<std::string, const char*> cases[] = {
        {with("<Files/>", ""), R"(!cfa\.xml:14:3: error: .*<Files>.* \[74-62\])"},
        {with("ComputeUnits=\"4\"", "ComputeUnits=\"400\""), R"(!cfa\.xml:10:9: error: .*above the maximum, 255.*)"},
        {with(":ub484:-1:i", ""), R"(!cfa\.xml: error: .*'tzmote:tzd10' \[74-65\])"},
        {with("Pre_Synth", "impl"), R"(: error: .*\(version 2\) is newer than the current version 1 .*\[74-52\])"},
        {"", R"(!cfa\.xml:1:1: error: .*no element found.*)"},
    };
    for (const auto& [xml, error] : cases) {
        SCOPED_TRACE(error);
        scratch.put("in/cfa.xml", xml);
        const Result pack = tool({"pack", scratch / "in", scratch / "y.cfa"});
        EXPECT_EQ(pack.exit, 3) << "packing looks at the metadata";
        EXPECT_FALSE(fs::exists(scratch / "y.cfa"));
        ASSERT_EQ(tool({"pack", scratch / "in", scratch / "x.cfa", "--force"}).exit, 0);
        const Result result = tool({"json", scratch / "x.cfa"});
        EXPECT_EQ(result.exit, 3);
        EXPECT_TRUE(std::regex_match(result.err, std::regex(".*x\\.cfa" + std::string(error) + "\n"))) << result.err;
    }
    scratch.put("in/cfa.xml", with("<Files/>", "<Files><File Type='T' Name='gone'/></Files>"));
    EXPECT_THAT(tool({"pack", scratch / "in", scratch / "y.cfa"}).err, HasSubstr("that are not there: gone"));
}

TEST(WrongUse, ExitsWithTwo) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{{},
                                                                       {"jsn"},
                                                                       {"json"},
                                                                       {"json", "a", "b"},
                                                                       {"json", "a", "--metadata=yaml"},
                                                                       {"show", "--nonsense", "a"}}) {
        const Result result = tool(arguments);
        EXPECT_EQ(result.exit, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err, "");
    }
    EXPECT_THAT(tool({"--version"}).out, MatchesRegex("zr-platform [0-9.]+\n"));
}

}  // namespace
