#include "platform/HTEQPlatformMgr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kit/Capture.h"
#include "kit/Repository.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwarePlatformMgr.h"
#include "platform/HTEQPlatform.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = HSTVector<std::string>;
using Type = HTEQPlatformMgr::TEQProjectType;

std::string vbnv(const std::string& name) { return R"({"vendor": "v", "boardId": "b", "name": ")" + name + "\"}"; }

class HTEQPlatformMgrTest : public testing::Test {
protected:
    Names errors() const {
        Names texts;
        manager.getParsingErrorMsgs(texts);
        for (std::string& text : texts)
            for (std::size_t at; (at = text.find(scratch.str() + "/")) != text.npos;)
                text.erase(at, scratch.str().size() + 1);
        return texts;
    }
    Names files() const {
        HSTVector<HTEQPlatform*> platforms;
        manager.getPlatforms(platforms);
        Names names;
        for (const HTEQPlatform* platform : platforms)
            names.push_back(platform->getPlatformFile().substr(scratch.str().size() + 1));
        return names;
    }
    /// A descriptor of this hardware file.
    std::string zdf(const std::string& name, const std::string& hardware, const std::string& software = "s.spfm") {
        scratch.put("r/s.spfm", kSoftware);
        return scratch.put("r/" + name,
                           descriptor("<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", hardware) +
                                          "</teq:hardwarePlatforms>",
                                      software));
    }

    Scratch scratch;
    Capture capture;
    HTEQPlatformMgr manager;
};

TEST_F(HTEQPlatformMgrTest, ScansAddWhatIsNewAtTheFront) {
    putPlatform(scratch, "r/a", "A");
    manager.addPlatformsFromDirs({scratch / "r"});
    putPlatform(scratch, "r/b", "B");
    putPlatform(scratch, "r/c", "C");
    manager.addPlatformsFromDirs("b", {scratch / "r"});
    manager.addPlatformsFromDirs("b", {scratch / "r", scratch / "none"});
    EXPECT_THAT(files(), ElementsAre("r/b/B.zdf", "r/a/A.zdf"));
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_THAT(capture.lines(), IsEmpty());
    manager.removePlatformsFromDirs({scratch / "r/a", scratch / "r/b/"});  // compared exactly
    EXPECT_THAT(files(), ElementsAre("r/b/B.zdf"));
}

TEST_F(HTEQPlatformMgrTest, FindsByUniqueNameBaseNameOrAnotherPath) {
    const std::string file = putPlatform(scratch, "r", "Card");
    packed(scratch, "lone/x.lfa", {{"lfa.json", vbnv("x")}});
    manager.addPlatformsFromDirs({scratch / "r", scratch / "lone"});
    HTEQPlatform* const card = manager.getPlatform(file);
    ASSERT_NE(card, nullptr);
    std::filesystem::create_symlink("r", scratch / "l");
    for (const char* name : {"cARD", "l/../r/Card.zdf", "l/Card.zdf"})
        EXPECT_EQ(manager.getPlatform(name[0] == 'l' ? scratch / name : name), card) << name;
    EXPECT_EQ(manager.getPlatform("Card.zdf"), nullptr);
    EXPECT_EQ(manager.getPlatform("x"), nullptr);
    manager.setProjectType(Type::platform);
    EXPECT_EQ(manager.getPlatform(file), nullptr);
    EXPECT_NE(manager.getPlatform("x"), nullptr);
    EXPECT_THAT(files(), ElementsAre("lone/x.lfa"));
    EXPECT_EQ(manager.getProjectTypeAsStr(), "platform");
    manager.setProjectType(static_cast<Type>(7));
    EXPECT_EQ(manager.getProjectTypeAsStr(), "");
}

TEST_F(HTEQPlatformMgrTest, CollectsWhyAPlatformIsLeftOut) {
    const struct {
        const char *name, *hardware, *software;
        Names errors, messages;
    } cases[] = {
        {"gone.zdf",
         "no.lfa",
         "s.spfm",
         {"Hardware platform file r/no.lfa for platform r/gone.zdf does not exist on disk. Unable to load "
          "platform.\n"},
         {"@74-14@%s%s: r/no.lfa"}},
        {"ext.zdf",
         "s.spfm",
         "s.spfm",
         {"Found bad hardware platform file r/s.spfm for platform r/ext.zdf. Supported extensions are .cfa .lfa. "
          "Unable to load platform.\n"},
         {"@74-55@%s%s%s: r/s.spfm"}},
        {"soft.zdf",
         "h.lfa",
         "no.spfm",
         {"Software platform file r/./no.spfm for platform r/soft.zdf does not exist on disk. Unable to load "
          "platform.\n"},
         {}},
        {"bad.zdf",
         "h.lfa",
         "bad.spfm",
         {"Error parsing software platform file: r/./bad.spfm\nLine number:1. not well-formed XML: no element found "
          "(column 1)",
          "Encountered Errors while parsing software platform for: r/bad.zdf. Unable to load platform.\n"},
         {"@74-51@%s%d: r/./bad.spfm", "@74-4@%s: r/bad.zdf"}},
    };
    packed(scratch, "r/h.lfa", {{"lfa.json", vbnv("h")}});
    scratch.put("r/bad.spfm", "");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string file = zdf(c.name, c.hardware, c.software);
        capture.taken.clear();
        manager.clearParsingErrorMsgs();
        manager.addPlatformsFromDirs({scratch / "r"});
        EXPECT_THAT(errors(), c.errors);
        Names lines = capture.lines();
        for (std::string& line : lines)
            if (const auto at = line.find(scratch.str()); at != line.npos) line.erase(at, scratch.str().size() + 1);
        EXPECT_THAT(lines, c.messages);
        EXPECT_THAT(files(), IsEmpty());
        std::filesystem::remove(file);
    }
    scratch.put("r/x.zdf", "<x/>");
    manager.clearParsingErrorMsgs();
    manager.addPlatformsFromDirs({scratch / "r"});
    ASSERT_EQ(errors().size(), 2U);
    EXPECT_EQ(errors().back(), "Encountered Errors while parsing platform: r/x.zdf. Unable to load platform.\n");
}

TEST_F(HTEQPlatformMgrTest, LoneArchives) {
    packed(scratch, "r/x/y/z/deep.lfa", {{"lfa.json", vbnv("deep")}});
    scratch.put("r/x/of.zdf", "");
    packed(scratch, "r/x/hw/of.lfa", {{"lfa.json", vbnv("of")}});  // belongs to of.zdf
    packed(scratch, "s/again.lfa", {{"lfa.json", vbnv("deep")}});
    packed(scratch, "s/old.cfa", {{"cfa.xml", contentOf(ZR_SOURCE_DIR "/tests/cases/cfa/platform.xml")}});
    scratch.put("s/no.lfa", "PK");
    std::filesystem::create_directory_symlink(scratch / "r", scratch / "s/l");
    manager.setProjectType(Type::platform);
    manager.addPlatformsFromDirs({scratch / "r", scratch / "s"});
    EXPECT_THAT(files(), testing::UnorderedElementsAre("r/x/y/z/deep.lfa", "s/old.cfa"));
    EXPECT_THAT(capture.lines(), testing::Contains("@74-17@%s%s%s: v:b:deep:0.0"));
    HSTVector<HTEQPlatform*> platforms(1, nullptr);
    manager.getCFAPlatforms(platforms);
    ASSERT_EQ(platforms.size(), 2U);
    EXPECT_TRUE(platforms[0]->isPartial());
    manager.addPlatformsFromDirs({scratch / "r"});
    EXPECT_EQ(manager.getNumPlatforms(), 2U);
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
