#include "platform/HTEQPlatformUtils.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kit/Capture.h"
#include "kit/Repository.h"
#include "platform/HTEQDevice.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformMgr.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSoftwarePlatformUtils.h"
#include "platform/HTEQSystemConfig.h"
#include "text/HSTStringUtils.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using U = HTEQPlatformUtils;
using Strings = U::Strings;

/// Metadata of a version, "MAJOR.MINOR", for a part, with design intents.
std::string metadata(const std::string& board, const std::string& version, const std::string& arch,
                     const std::string& intents, const std::string& more = "") {
    const auto dot = version.find('.');
    std::string text = R"({"vendor": "hv", "boardId": ")" + board + R"(", "name": "n", "versionMajor": ")" +
                       version.substr(0, dot) + R"(", "versionMinor": ")" + version.substr(dot + 1) +
                       R"(", "designIntent": {)";
    for (const char* intent : {"dataCenter", "embedded", "externalHost", "serverManaged"})
        text += std::string(text.ends_with('{') ? "" : ", ") + "\"" + intent + R"(": {"value": ")" +
                (intents.find(intent) != std::string::npos ? "true" : "false") + R"(", "explicit": "true"})";
    return text + R"(}, "devices": [{"name": "fpga0", "fpgaPart": ")" + arch +
           R"(:d:p:-2:e", "core": {"name": "c"}}])" + more + "}";
}

class HTEQPlatformUtilsTest : public testing::Test {
protected:
    HTEQPlatformUtilsTest() {
        manager.clearAllPlatforms();
        putPlatform(scratch, "root/platforms/card", "card_1", metadata("b1", "1.9", "A", "dataCenter serverManaged"));
        putPlatform(scratch, "root/platforms/card", "card_2",
                    metadata("b1", "1.10", "A", "dataCenter", R"(, "unifiedPlatform": "true")"));
        putPlatform(scratch, "user/kit", "kit",
                    metadata("b2", "3.0", "B", "embedded", R"(, "expandablePlatform": "false")"));
        manager.addPlatformsFromDirs({scratch / "root/platforms", scratch / "user"});
    }
    ~HTEQPlatformUtilsTest() override { manager.clearAllPlatforms(); }

    static Strings names(const U::Platforms& platforms) {
        Strings names;
        for (const HTEQPlatform* platform : platforms) names.push_back(platform->getPlatformBaseName());
        return names;
    }

    Scratch scratch;
    AppRoots roots{{scratch / "root"}};
    Capture capture;
    HTEQPlatformMgr& manager = *HTEQPlatformMgr::getGlobalNoInit();
};

TEST_F(HTEQPlatformUtilsTest, QuestionsByName) {
    const struct {
        bool (*ask)(const std::string&);
        const char* yes;  ///< the platforms for which it is true
    } cases[] = {
        {U::isDUVPlatform, "card_1 card_2"},
        {U::isWELPlatform, "kit"},
        {U::isUnifiedPlatform, "card_2"},
        {U::isExpandablePlatform, "card_1 card_2"},
        {U::isFixedPlatform, "kit unknown"},
        {U::isProcessorGroupRelevant, "kit"},
        {U::isUserPlatform, "kit"},
        {U::isLinuxRootFSPathRelevant, "kit"},
        {U::supportsMultipleRuntimes, "card_1 card_2 kit"},
    };
    for (const auto& c : cases) {
        std::string yes;
        for (const char* name : {"card_1", "card_2", "kit", "unknown"})
            if (c.ask(name)) yes += (yes.empty() ? "" : " ") + std::string(name);
        EXPECT_EQ(yes, c.yes) << &c - cases;
    }
    EXPECT_EQ(U::getFpgaPart("kit"), "d-p-2-e");
    EXPECT_EQ(U::getFpgaPart("unknown"), "");
    EXPECT_THAT(U::getFpgaPartAsFields("kit"), ElementsAre("B", "d", "p", "-2", "e", "", ""));
}

TEST_F(HTEQPlatformUtilsTest, FindsPlatforms) {
    const auto vbnv = [](const char* v, const char* b, const char* version) {
        U::Platforms out;
        U::getPlatformsByVBNV(v, b, "n", version, out);
        return names(out);
    };
    EXPECT_THAT(vbnv("", "", ""), UnorderedElementsAre("card_1", "card_2", "kit"));
    EXPECT_THAT(vbnv("hv", "b1", "1.10"), ElementsAre("card_2"));
    EXPECT_THAT(vbnv("v", "", ""), IsEmpty());
    U::Platforms latest;
    U::getLatestPlatformsByVBNV("", "b1", "", "", latest);
    EXPECT_THAT(names(latest), ElementsAre("card_2"));  // numbers are compared, not texts
    EXPECT_FALSE(U::isLatestVersion(U::getPlatform("card_1")));
    EXPECT_TRUE(U::isLatestVersion(U::getPlatform("card_1"), {U::getPlatform("kit")}));

    const auto category = [](const char* what, const char* part, const char* board, bool latestOnly) {
        U::Platforms out;
        U::getPlatformsByCategoryFamilyVendorAndBoard(what, part, "hv", board, latestOnly, out);
        return names(out);
    };
    EXPECT_THAT(category("fennick", "A", "b1", false), UnorderedElementsAre("card_1", "card_2"));
    EXPECT_THAT(category("fennick", "A", "", true), ElementsAre("card_2"));
    EXPECT_THAT(category("lorimar", "A", "", false), IsEmpty());
    EXPECT_THAT(category("lorimar", "B", "", false), ElementsAre("kit"));
    EXPECT_THAT(category("any", "B", "b2", false), ElementsAre("kit"));
    const auto intent = [](unsigned bits) {
        U::Platforms out;
        U::getPlatformsByDesignIntent(bits, "A", "", "", false, out);
        return names(out);
    };
    EXPECT_THAT(intent(0), UnorderedElementsAre("card_1", "card_2"));
    EXPECT_THAT(intent(8 | 1), ElementsAre("card_1"));
    EXPECT_THAT(intent(4), IsEmpty());
    Strings boards, parts;
    U::getBoardsByPartAndVendor("A", "v", boards);
    U::getBoardsByPartAndVendor("A", "hv", boards);  // the platform's vendor counts, not the hardware's
    EXPECT_THAT(boards, ElementsAre("b1"));
    U::getSupportedFpgaParts(parts);
    EXPECT_THAT(parts, UnorderedElementsAre("A", "B"));
}

TEST_F(HTEQPlatformUtilsTest, FindsByFile) {
    const std::string file = scratch / "user/kit/kit.zdf";
    HTEQPlatform* const kit = U::getPlatformByUniqueName(file);
    ASSERT_NE(kit, nullptr);
    EXPECT_EQ(U::getPlatformByUniqueName("KIT"), kit);
    EXPECT_EQ(U::getPlatformByUniqueName(HSTStringUtils::toUpper(file)), kit);
    EXPECT_EQ(U::getPlatformByZdfFileBaseName("kit"), kit);
    EXPECT_EQ(U::getPlatformByZdfFileBaseName("KIT"), nullptr);
    EXPECT_EQ(U::getPlatformByFilePath(scratch / "user/../user/kit/kit.zdf"), kit);
    EXPECT_EQ(capture.printed(), "");
    setenv("GET_PLATFORM_BY_PATH_DEBUG_VAR", "", 1);
    EXPECT_EQ(U::getPlatformByFilePath(scratch / "none"), nullptr);
    EXPECT_EQ(U::getPlatformByFilePath(file), kit);
    unsetenv("GET_PLATFORM_BY_PATH_DEBUG_VAR");
    const std::vector<std::string> lines = HSTStringUtils::split(capture.printed(), '\n');
    EXPECT_EQ(lines.front(), "sZdfFileCanonical is: " + scratch / "none");
    EXPECT_THAT(lines, testing::Contains("sPlatFileCanonical is: " + file + " Does not match"));
    EXPECT_THAT(lines, testing::Contains("sPlatFileCanonical is: " + file + " Found a match"));
}

TEST_F(HTEQPlatformUtilsTest, Directories) {
    Strings roots, factory, user, unified;
    U::getRootInstallPlatformDirs(roots);
    EXPECT_THAT(roots, ElementsAre(scratch / "root/platforms", "/opt/torvane/platforms"));
    EXPECT_TRUE(U::isInstallPlatformDir(scratch / "root/platforms_of_mine"));  // as a text
    U::getAllFactoryPlatformDirs(factory);
    EXPECT_THAT(factory, ElementsAre(scratch / "root/platforms/card"));
    U::getUnifiedPlatformDirs(unified);
    EXPECT_EQ(unified, factory);
    U::getAllUserPlatformDirs(user);
    EXPECT_THAT(user, ElementsAre(scratch / "user/kit"));
    EXPECT_EQ(U::setUserPlatformDirs({scratch / "none"}), "No Platforms Found.\n\n");
    EXPECT_EQ(U::getPlatform("kit"), nullptr);
    EXPECT_EQ(manager.getNumPlatforms(), 2U);
    scratch.put("more/bad.zdf", "");
    putPlatform(scratch, "more/x", "x");
    const std::string text = U::setUserPlatformDirs({scratch / "more"});
    EXPECT_THAT(text, testing::StartsWith("Error parsing platform file: "));
    EXPECT_THAT(text, testing::EndsWith("more/bad.zdf. Unable to load platform.\n"));
    EXPECT_NE(U::getPlatform("x"), nullptr);
    EXPECT_THAT(U::splitToFullDirs(scratch / "x/..:"), ElementsAre(scratch.str(), ""));
}

TEST_F(HTEQPlatformUtilsTest, Vocabulary) {
    EXPECT_EQ(U::getPrettyNameForProductType("fennick") + U::getPrettyNameForProductType("lorimar") +
                  U::getPrettyNameForProductType("x"),
              "FennickLorimarTeq");
    Strings types;
    U::getAllLibraryTypes(types);
    EXPECT_THAT(types, ElementsAre("c-callable", "shared", "static"));
    EXPECT_EQ(U::getPrettyNameForLibType("c-callable"), "C-Callable Library");
    EXPECT_EQ(U::getPrettyNameForLibType("dynamic"), "");
    const auto runtimes = [](auto query, const char* name) {
        Strings out;
        query(name, "c", out);
        return HSTStringUtils::join(out, ",");
    };
    EXPECT_EQ(runtimes(U::getRuntimes, "card_1"), "ocl");  // by its intent: the software names none
    EXPECT_EQ(runtimes(U::getRuntimesByPrettyName, "kit"), "C/C++");
    EXPECT_EQ(runtimes(U::getRuntimes, "unknown"), "");
    HTEQSoftwarePlatform& software = *U::getPlatform("kit")->getSoftwarePlatform();
    software.getSystemConfig()->addRuntime("ocl");
    HTEQSystemConfig* const second = software.addSystemConfig();
    second->setName("d");
    second->addRuntime("x");
    EXPECT_EQ(runtimes(U::getRuntimes, "kit"), "ocl");
    EXPECT_EQ(U::getNumRuntimes("kit", "no such configuration"), 2U);
}

TEST_F(HTEQPlatformUtilsTest, SoftwareByUniqueName) {
    using S = HTEQSoftwarePlatformUtils;
    HTEQSoftwarePlatform& software = *U::getPlatform("kit")->getSoftwarePlatform();
    EXPECT_EQ(S::getSystemConfigurationByUniqueName("kit", "c"), software.getSystemConfig());
    EXPECT_EQ(S::getSystemConfigurationByUniqueName("kit", "C"), nullptr);  // its pretty name
    HTEQSystemConfig* const last = software.addSystemConfig();
    last->setName("c");
    EXPECT_EQ(S::getSystemConfigurationByUniqueName("KIT", "c"), last);
    HTEQProcessorGroup* const group = last->addProcessorGroup();
    group->setName("g");
    group->setOSName("linux");
    group->setIncludePaths("i1:i2");
    group->setLibraryPaths("l");
    EXPECT_EQ(S::getIncludePaths("kit", "c", "g", "linux"), "i1:i2");
    EXPECT_EQ(S::getLibraryPaths("kit", "c", "g", "linux"), "l");
    EXPECT_EQ(S::getIncludePaths("kit", "c", "g", "Linux") + S::getIncludePaths("kit", "c", "x", "linux") +
                  S::getIncludePaths("kit", "x", "g", "linux") + S::getIncludePaths("x", "c", "g", "linux"),
              "");
    HTEQSystemConfig* const pretty = software.addSystemConfig();
    pretty->setName("C");
    EXPECT_EQ(S::getSystemConfigByPrettyName(&software, "C"), software.getSystemConfig());  // no plain names
    pretty->setPrettyName("C");
    pretty->setSupportsQemu(true);
    EXPECT_EQ(S::getSystemConfigByPrettyName(&software, "C"), pretty);
    EXPECT_TRUE(S::isQemuSupported(&software, "C"));
    EXPECT_FALSE(S::isQemuSupported(&software, "c"));
    EXPECT_EQ(S::getSystemConfigByPrettyName(nullptr, "C"), nullptr);
}

}  // namespace
