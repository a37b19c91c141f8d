#include "platform/HTEQPlatformUtils.h"

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <set>

#include "kit/Capture.h"
#include "kit/Cases.h"
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
using U = HTEQPlatformUtils;
using Strings = U::Strings;

class HTEQPlatformUtilsTest : public testing::Test {
protected:
    HTEQPlatformUtilsTest() {
        manager.clearAllPlatforms();
        for (const std::string name : {"card_1", "card_2", "kit"})  // the metadata of each is a file
            putPlatform(scratch, name == "kit" ? "user/kit" : "root/platforms/card", name,
                        contentOf(ZR_SOURCE_DIR "/tests/cases/repository/" + name + ".json"));
        manager.addPlatformsFromDirs({scratch / "root/platforms", scratch / "user"});
    }
    ~HTEQPlatformUtilsTest() override { manager.clearAllPlatforms(); }
    Scratch scratch;
    AppRoots roots{{scratch / "root"}};
    Capture capture;
    HTEQPlatformMgr& manager = *HTEQPlatformMgr::getGlobalNoInit();
};

using Query = std::function<std::string(const Strings&)>;

std::string joined(Strings texts) { return HSTStringUtils::join(texts, " "); }

Query listing(const std::function<void(const Strings&, U::Platforms&)>& query) {
    return [query](const Strings& a) {
        U::Platforms out;
        query(a, out);
        std::set<std::string> names;
        for (const HTEQPlatform* platform : out) names.insert(platform->getPlatformBaseName());
        return joined({names.begin(), names.end()});
    };
}
Query texts(const std::function<void(const Strings&, Strings&)>& query) {
    return [query](const Strings& a) {
        Strings out;
        query(a, out);
        if (out.size() == 2) std::sort(out.begin(), out.end());
        return joined(out);
    };
}
Query filter(bool (*ask)(const std::string&)) {
    return [ask](Strings names) {
        std::erase_if(names, [&](const std::string& name) { return !ask(name); });
        return joined(names);
    };
}
Query name(HTEQPlatform* (*find)(const std::string&)) {
    return [find](const Strings& a) { return find(a[0]) ? find(a[0])->getPlatformBaseName() : ""; };
}

const std::map<std::string, Query> kQueries = {
    {"isDUVPlatform", filter(U::isDUVPlatform)},
    {"isWELPlatform", filter(U::isWELPlatform)},
    {"isUnifiedPlatform", filter(U::isUnifiedPlatform)},
    {"isExpandablePlatform", filter(U::isExpandablePlatform)},
    {"isFixedPlatform", filter(U::isFixedPlatform)},
    {"isProcessorGroupRelevant", filter(U::isProcessorGroupRelevant)},
    {"isLinuxRootFSPathRelevant", filter(U::isLinuxRootFSPathRelevant)},
    {"isUserPlatform", filter(U::isUserPlatform)},
    {"supportsMultipleRuntimes", filter(U::supportsMultipleRuntimes)},
    {"isLatestVersion", filter([](const std::string& one) { return U::isLatestVersion(U::getPlatform(one)); })},
    {"getFpgaPart", [](const Strings& a) { return U::getFpgaPart(a[0]); }},
    {"getFpgaPartAsFields", [](const Strings& a) { return joined(U::getFpgaPartAsFields(a[0])); }},
    {"getPlatformByZdfFileBaseName", name(U::getPlatformByZdfFileBaseName)},
    {"getPlatformByUniqueName", name(U::getPlatformByUniqueName)},
    {"getPlatformsByVBNV", listing([](auto& a, auto& out) { U::getPlatformsByVBNV(a[0], a[1], a[2], a[3], out); })},
    {"getLatestPlatformsByVBNV",
     listing([](auto& a, auto& out) { U::getLatestPlatformsByVBNV(a[0], a[1], a[2], a[3], out); })},
    {"getPlatformsByPart", listing([](auto& a, auto& out) { U::getPlatformsByPart(a[0], out); })},
    {"getPlatformsByCategoryFamilyVendorAndBoard", listing([](auto& a, auto& out) {
         U::getPlatformsByCategoryFamilyVendorAndBoard(a[0], a[1], a[2], a[3], !a[4].empty(), out);
     })},
    {"getPlatformsByDesignIntent", listing([](auto& a, auto& out) {
         U::getPlatformsByDesignIntent(static_cast<unsigned>(std::stoul(a[0])), a[1], a[2], a[3], !a[4].empty(), out);
     })},
    {"getBoardsByPartAndVendor", texts([](auto& a, auto& out) { U::getBoardsByPartAndVendor(a[0], a[1], out); })},
    {"getSupportedFpgaParts", texts([](auto&, auto& out) { U::getSupportedFpgaParts(out); })},
    {"getPrettyNameForProductType", [](const Strings& a) { return U::getPrettyNameForProductType(a[0]); }},
    {"getPrettyNameForLibType", [](const Strings& a) { return U::getPrettyNameForLibType(a[0]); }},
    {"getAllLibraryTypes", texts([](auto&, auto& out) { U::getAllLibraryTypes(out); })},
    {"getRuntimes", texts([](auto& a, auto& out) { U::getRuntimes(a[0], a[1], out); })},
    {"getRuntimesByPrettyName", texts([](auto& a, auto& out) { U::getRuntimesByPrettyName(a[0], a[1], out); })},
};

TEST_F(HTEQPlatformUtilsTest, Queries) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/repository/queries.case",
                       [](const std::string& question, const std::string& text) {
                           Strings arguments = HSTStringUtils::split(text, ' ');
                           for (std::string& argument : arguments)
                               if (argument == "-") argument.clear();
                           return kQueries.at(question.substr(0, question.find(':')))(arguments);
                       });
}

TEST_F(HTEQPlatformUtilsTest, FindsByFile) {
    const std::string file = scratch / "user/kit/kit.zdf";
    HTEQPlatform* const kit = U::getPlatformByUniqueName(file);
    ASSERT_NE(kit, nullptr);
    EXPECT_EQ(U::getPlatformByUniqueName(HSTStringUtils::toUpper(file)), kit);
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
    EXPECT_THAT(U::setUserPlatformDirs({scratch / "more"}),
                testing::EndsWith("more/bad.zdf. Unable to load platform.\n"));
    EXPECT_THAT(U::splitToFullDirs(scratch / "x/..:"), ElementsAre(scratch.str(), ""));
}

TEST_F(HTEQPlatformUtilsTest, SoftwareByUniqueName) {
    using S = HTEQSoftwarePlatformUtils;
    HTEQSoftwarePlatform& software = *U::getPlatform("kit")->getSoftwarePlatform();
    software.getSystemConfig()->addRuntime("ocl");
    EXPECT_EQ(kQueries.at("getRuntimes")({"kit", "c"}), "ocl");
    EXPECT_EQ(S::getSystemConfigurationByUniqueName("kit", "c"), software.getSystemConfig());
    EXPECT_EQ(S::getSystemConfigurationByUniqueName("kit", "C"), nullptr);  // its pretty name
    HTEQSystemConfig* const last = software.addSystemConfig();
    last->setName("c"), last->addRuntime("x");
    EXPECT_EQ(U::getNumRuntimes("kit", "no such configuration"), 2U);
    EXPECT_EQ(S::getSystemConfigurationByUniqueName("KIT", "c"), last);
    HTEQProcessorGroup* const group = last->addProcessorGroup();
    group->setName("g"), group->setOSName("linux");
    group->setIncludePaths("i1:i2"), group->setLibraryPaths("l");
    EXPECT_EQ(S::getIncludePaths("kit", "c", "g", "linux"), "i1:i2");
    EXPECT_EQ(S::getLibraryPaths("kit", "c", "g", "linux"), "l");
    EXPECT_EQ(S::getIncludePaths("kit", "c", "g", "Linux") + S::getIncludePaths("kit", "c", "x", "linux") +
                  S::getIncludePaths("kit", "x", "g", "linux") + S::getIncludePaths("x", "c", "g", "linux"),
              "");
    last->setName("C");
    EXPECT_EQ(S::getSystemConfigByPrettyName(&software, "C"), software.getSystemConfig());  // no plain names
    last->setPrettyName("C"), last->setSupportsQemu(true);
    EXPECT_EQ(S::getSystemConfigByPrettyName(&software, "C"), last);
    EXPECT_TRUE(S::isQemuSupported(&software, "C") && !S::isQemuSupported(&software, "c"));
}

}  // namespace
