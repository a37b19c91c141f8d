#include "platform/PlatformSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kit/Capture.h"
#include "kit/Replace.h"
#include "kit/Repository.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformMgr.h"
#include "platform/HTEQPlatformUtils.h"
#include "platform/NativePlatformRepoService.h"
#include "text/HSTStringUtils.h"

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

/// A line of the tree in docs/finding.md.
struct TreeLine {
    std::string path, target, rule;
    bool isEmpty = false;
};

std::vector<TreeLine> treeOfThePage() {
    const std::string page = contentOf(ZR_SOURCE_DIR "/docs/finding.md");
    const std::size_t begin = page.find("```tree\n") + 8;
    std::istringstream text(page.substr(begin, page.find("```", begin) - begin));
    std::vector<TreeLine> lines;
    for (std::string line; std::getline(text, line);) {
        std::istringstream words(line);
        TreeLine& made = lines.emplace_back();
        words >> made.path;
        for (std::string word; words >> word;)
            if (word == "->")
                words >> made.target;
            else if (word == "=")
                made.isEmpty = true;
            else
                made.rule = word;
    }
    return lines;
}

}  // namespace

TEST(PlatformSearch, TheTreeOfThePage) {
    const Scratch scratch;
    const Messages messages;
    const std::vector<TreeLine> tree = treeOfThePage();
    ASSERT_GE(tree.size(), 10U);
    Names found;
    for (const TreeLine& line : tree) {
        if (!line.target.empty())
            fs::create_symlink(line.target, scratch / line.path);
        else if (!fs::exists(scratch / line.path))
            scratch.put(line.path, line.isEmpty ? ""
                                                : descriptor("<teq:hardwarePlatforms>" +
                                                             fileElement("hardwarePlatform", "x.lfa") +
                                                             "</teq:hardwarePlatforms>"));
        if (line.rule == "found" && line.path.find("/up/") == std::string::npos) found.push_back(line.path);
    }
    const Repositories where{.dirs = {scratch / "vendor", scratch / "team"}, .withDefaults = false};
    for (const TreeLine& line : tree) {
        if (!line.rule.empty()) {
            EXPECT_EQ(whyNot(scratch / line.path, where).rule, line.rule) << line.path;
        }
    }
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
