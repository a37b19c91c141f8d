#include "platform/PlatformSearch.h"

#include <gmock/gmock.h>

#include <regex>

#include "kit/Capture.h"
#include "kit/Repository.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformMgr.h"
#include "platform/HTEQPlatformUtils.h"
#include "platform/NativePlatformRepoService.h"

namespace {

namespace fs = std::filesystem;
using namespace teq_platform::requests;
using testing::ElementsAre;
using Names = HSTVector<std::string>;

Names filesOf(const HSTVector<FoundPlatform>& list, const Scratch& scratch) {
    Names files;
    for (const FoundPlatform& found : list) files.push_back(without(scratch, found.file));
    return files;
}

}  // namespace

TEST(PlatformSearch, TheTreeOfThePage) {
    const Scratch scratch;
    const Messages messages;
    const std::string page = contentOf(ZR_SOURCE_DIR "/docs/finding.md");
    const std::regex form("\n(\\S+)(?: -> (\\S+)| (=))? *(\\S*)(?=\n)");  // path, target of a link, empty, rule
    const auto end = page.begin() + static_cast<std::ptrdiff_t>(page.find("```", page.find("```tree") + 1));
    const std::vector<std::smatch> tree(
        std::sregex_iterator(page.begin() + static_cast<std::ptrdiff_t>(page.find("```tree") + 7), end, form), {});
    ASSERT_EQ(tree.size(), 12U);
    const std::string content =
        descriptor("<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", "x.lfa") + "</teq:hardwarePlatforms>");
    const Repositories where{.dirs = {scratch / "vendor", scratch / "team"}, .withDefaults = false};
    Names found;
    for (const std::smatch& line : tree) {
        if (line[2].matched)
            fs::create_symlink(line[2].str(), scratch / line[1]);
        else if (!fs::exists(scratch / line[1]))
            scratch.put(line[1], line[3].matched ? "" : content);
        if (line[4] == "found" && line[1].str().find("/up/") == std::string::npos) found.push_back(line[1]);
    }
    for (const std::smatch& line : tree)
        EXPECT_TRUE(line.length(4) == 0 || whyNot(scratch / line[1], where).rule == line[4]) << line[0];
    EXPECT_EQ(whyNot(scratch / "team/none.zdf", where).rule, "missing");
    EXPECT_EQ(whyNot(scratch / "team/up/none.zdf", where).rule, "loop");
    const FindResult result = find({.where = where});
    EXPECT_THAT(filesOf(result.platforms, scratch), testing::UnorderedElementsAreArray(found));
    EXPECT_THAT(filesOf(result.shadowed, scratch), ElementsAre("team/U77.zdf"));
    EXPECT_THAT(filesOf(result.broken, scratch), ElementsAre("vendor/empty.zdf"));
    const Location location = locate("U77", where);
    EXPECT_EQ(location.file, scratch / "vendor/u77.zdf");
    EXPECT_THAT(filesOf(location.others, scratch), ElementsAre("team/U77.zdf"));
}

/// Metadata of real size. Every hundredth platform is broken, every tenth in a second repository of the same name.
TEST(PlatformSearch, AThousandPlatforms) {
    const Scratch scratch;
    Capture capture;
    const std::string sample = contentOf(ZR_SOURCE_DIR "/examples/u77/hw/u77.lfa/lfa.json");
    const std::string metadata =
        sample.substr(0, sample.find(R"("files": [)")) + R"("files": [)" +
        repeated(R"({"name": "tcl/one_of_many_scripts.tcl", "type": "REBUILD_TCL"}, )", 500) +
        R"({"name": "x", "type": "X"}]})";  // 40 KB
    constexpr int kPlatforms = 1000;
    const std::string model = putPlatform(scratch, "model", "p", metadata);
    const std::string text = contentOf(model);
    for (int i = 0; i < kPlatforms; ++i) {
        const std::string number = std::to_string(i), directory = "r/" + std::to_string(i % 7) + "/" + number;
        const std::string archive = "p" + number + ".lfa";
        fs::create_directories(scratch / directory + "/hw");
        fs::copy(scratch / "model/hw/p.lfa", scratch / directory + "/hw/" + archive);
        fs::copy(scratch / "model/sw", scratch / directory + "/sw");
        scratch.put(directory + "/p" + number + ".zdf", i % 100 == 50 ? "<" : with(text, "p.lfa", archive));
        if (i % 10 == 0) scratch.put("s/P" + number + ".zdf", text);
    }
    const Repositories where{.dirs = {scratch / "r", scratch / "s"}, .withDefaults = false};
    const FindResult result = find({.where = where});
    EXPECT_EQ(result.platforms.size(), 1000U);  // 990 and, for the broken ones, those of the second repository
    EXPECT_EQ(result.shadowed.size(), 90U);
    EXPECT_EQ(result.broken.size(), 10U);
    EXPECT_EQ(find({.where = where, .name = "p99?"}).platforms.size(), 10U);
    EXPECT_EQ(locate("P150", where).file, scratch / "s/P150.zdf");
    std::vector<std::string> files;
    teq::platform::NativePlatformRepoService().getZdfFiles("p7", where.dirs, false, files);
    EXPECT_THAT(files, ElementsAre(scratch / "r/0/7/p7.zdf"));

    HTEQPlatformMgr manager;
    manager.addPlatformsFromDirs({scratch / "r"});
    EXPECT_EQ(manager.getNumPlatforms(), 990U);
    Names errors;
    manager.getParsingErrorMsgs(errors);
    EXPECT_EQ(errors.size(), 20U);
    const HTEQPlatform* const found = manager.getPlatform("p123");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->getHardwarePlatform()->getBoardId(), "u77");
    EXPECT_EQ(manager.getPlatform(scratch / "r/../r/4/123/p123.zdf"), found);
    fs::remove_all(scratch / "r");  // nothing is read again
    EXPECT_EQ(manager.getPlatform(scratch / "r/../r/4/123/p123.zdf"), found);
    EXPECT_EQ(manager.getPlatform("p50"), nullptr);
}
