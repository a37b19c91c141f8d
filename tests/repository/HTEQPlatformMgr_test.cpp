#include "platform/HTEQPlatformMgr.h"

#include <gmock/gmock.h>
#include <malloc.h>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/Repository.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwarePlatformMgr.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "text/HSTStringUtils.h"

namespace {

using Names = HSTVector<std::string>;
using Type = HTEQPlatformMgr::TEQProjectType;

std::string vbnv(const std::string& name) { return R"({"vendor": "v", "boardId": "b", "name": ")" + name + "\"}"; }

class HTEQPlatformMgrTest : public testing::Test {
protected:
    Names errors() const {
        Names texts;
        manager.getParsingErrorMsgs(texts);
        return texts;
    }
    Scratch scratch;
    Capture capture;
    HTEQPlatformMgr manager;
};

/// What the steps of a case print.
std::string runOf(const std::string&, const std::string& text) {
    const Scratch scratch;
    const Capture capture;
    HTEQPlatformMgr manager;
    std::string out;
    const auto paths = [&](const std::string& list) {
        Names dirs;
        for (const std::string& dir : HSTStringUtils::split(list, ',')) dirs.push_back(scratch / dir);
        return dirs;
    };
    for (const std::string& step : HSTStringUtils::split(HSTStringUtils::trim(text), ';')) {
        Names word = HSTStringUtils::split(HSTStringUtils::trim(step), ' ');
        word.resize(3);
        if (word[0] == "platform") putPlatform(scratch, word[1], word[2]);
        if (word[0] == "archive") packed(scratch, word[1], {{"lfa.json", vbnv(word[2])}});
        if (word[0] == "file") scratch.put(word[1], "");
        if (word[0] == "link") std::filesystem::create_directory_symlink(word[2], scratch / word[1]);
        if (word[0] == "add") manager.addPlatformsFromDirs(word[2], paths(word[1]));
        if (word[0] == "remove") manager.removePlatformsFromDirs(paths(word[1]));
        if (word[0] == "type") manager.setProjectType(static_cast<Type>(std::stoi(word[1])));
        HSTVector<HTEQPlatform*> found;
        if (word[0] == "list") manager.getPlatforms(found);
        if (word[0] == "get") found = {manager.getPlatform(word[1][0] == '.' ? scratch / word[1] : word[1])};
        for (const HTEQPlatform* platform : found) out += platform ? platform->getPlatformFile() + " " : "- ";
        if (!found.empty()) out.replace(out.size() - 1, 1, "; ");
    }
    std::string said;
    for (const std::string& line : capture.lines())  // a text begins with the file and ": "
        said += "!" + line.substr(0, line.find(": ", line.find(": ") + 2)) + " ";
    return without(scratch, said + out.substr(0, out.rfind(';')));
}

TEST(HTEQPlatformMgr, DoesWhatTheCasesSay) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/repository/registry.case", runOf);
}

TEST_F(HTEQPlatformMgrTest, CollectsWhyAPlatformIsLeftOut) {
    packed(scratch, "r/h.lfa", {{"lfa.json", vbnv("h")}});
    scratch.put("r/s.spfm", kSoftware);
    scratch.put("r/bad.spfm", "");
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/repository/left-out.case",
                       [this](const std::string&, const std::string& text) {
                           scratch.put("r/p.zdf", with(text, "\n", ""));
                           capture.taken.clear();
                           manager.clearParsingErrorMsgs();
                           manager.addPlatformsFromDirs({scratch / "r"});
                           EXPECT_EQ(manager.getNumPlatforms(), 0U);
                           std::string said;
                           for (const std::string& line : capture.lines()) said += line + "|";
                           for (const std::string& error : errors()) said += error + "|";
                           return without(scratch, said);
                       });
}

/// Writes r/rp.zdf, a platform with two partitions.
void putPartitions(const Scratch& scratch) {
    std::string all = "<teq:hardwarePlatforms teq:defaultRP='2'>";
    for (const std::string id : {"1", "2"}) {
        packed(scratch, "r/rp" + id + ".lfa", {{"lfa.json", R"({"name": "rp)" + id + R"("})"}});
        all += "<teq:reconfigurablePartition teq:id='" + id + "'>" +
               fileElement("hardwarePlatform", "rp" + id + ".lfa") + "</teq:reconfigurablePartition>";
    }
    scratch.put("r/s.spfm", kSoftware);
    scratch.put("r/rp.zdf", descriptor(all + "</teq:hardwarePlatforms>", "s.spfm"));
}

TEST_F(HTEQPlatformMgrTest, PartitionsAreAllNeeded) {
    putPartitions(scratch);
    manager.addPlatformsFromDirs({scratch / "r"});
    ASSERT_NE(manager.getPlatform("rp"), nullptr);
    EXPECT_EQ(manager.getPlatform("rp")->getHardwarePlatform()->getName(), "rp2");
    manager.clearAllPlatforms();
    std::filesystem::remove(scratch / "r/rp1.lfa");
    manager.addPlatformsFromDirs({scratch / "r"});
    EXPECT_EQ(manager.getPlatform("rp"), nullptr);
    EXPECT_EQ(errors().size(), 1U);
}

/// Of partitions, nobody owns the hardware: here the host deletes it.
TEST_F(HTEQPlatformMgrTest, ClearingLeavesOnlyTheHardwareOfPartitions) {
    for (const char* name : {"a", "b"}) putPlatform(scratch, "r", name, vbnv(name));
    for (const char* name : {"lone", "twice"})
        packed(scratch, "r/" + std::string(name) + ".lfa", {{"lfa.json", vbnv("x")}});
    scratch.put("r/broken.zdf", descriptor(""));
    putPartitions(scratch);
    std::size_t held = 0;
    for (int cycle = 0; cycle < 100; ++cycle) {
        const Capture freed;
        manager.addPlatformsFromDirs({scratch / "r"});
        ASSERT_EQ(manager.getNumPlatforms(), 3U);
        std::vector<std::unique_ptr<HTEQHardwarePlatform>> kept;
        for (const HTEQReconfigurablePartition* partition : manager.getPlatform("rp")->getReconfigurablePartitions())
            kept.emplace_back(partition->getHardwarePlatform());
        manager.clearAllPlatforms();
        manager.clearParsingErrorMsgs();
        kept.clear();
        if (cycle == 9) held = ::mallinfo2().uordblks;  // 0 under ASan, where LSan reports leaks
    }
    EXPECT_LE(::mallinfo2().uordblks, held + 1024);
}

TEST_F(HTEQPlatformMgrTest, ANewScanReplacesTheSameUniqueName) {
    packed(scratch, "r/x.lfa", {{"lfa.json", vbnv("x")}});
    packed(scratch, "r/y.lfa", {{"lfa.json", vbnv("y")}});
    HSTVector<HTEQHardwarePlatform*> out;
    HTEQHardwarePlatformMgr::addPlatformsFromDirs({scratch / "r"}, out, false);
    ASSERT_EQ(out.size(), 2U);
    const std::unique_ptr<HTEQHardwarePlatform> first(out[0]), second(out[1]);
    std::filesystem::remove(second->getPlatformFile());
    HTEQHardwarePlatformMgr::addPlatformsFromDirs({scratch / "r", scratch / "none"}, out, false);
    ASSERT_EQ(out.size(), 2U);
    const std::unique_ptr<HTEQHardwarePlatform> fresh(out[1]);
    EXPECT_EQ(out[0], second.get());
    EXPECT_EQ(fresh->getName(), first->getName());
    EXPECT_EQ(HTEQHardwarePlatformMgr::addPlatform(scratch / "none.lfa"), nullptr);
}

TEST(HTEQPlatformMgr, TheGlobalOneScansTheDefaultRepositoriesOnce) {
    const Scratch scratch;
    putPlatform(scratch, "root/platforms", "p");
    const AppRoots roots({scratch / "root"});
    HSTVector<std::string> dirs;
    HTEQPlatformMgr* const manager = HTEQPlatformMgr::getGlobal();
    manager->getDefaultTeqPlatformDirs(dirs);
    EXPECT_EQ(dirs.front(), scratch / "root/platforms");
    EXPECT_NE(manager->getPlatform("p"), nullptr);
    manager->clearAllPlatforms();
    EXPECT_EQ(HTEQPlatformMgr::getGlobal(), manager);
    EXPECT_EQ(HTEQPlatformMgr::getGlobalNoInit()->getNumPlatforms(), 0U);
}

}  // namespace
