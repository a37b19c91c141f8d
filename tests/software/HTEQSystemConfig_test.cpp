#include "platform/HTEQSystemConfig.h"

#include <gtest/gtest.h>

#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"

TEST(HTEQSystemConfig, DefaultNames) {
    HTEQSystemConfig config;
    EXPECT_EQ(config.getDefaultProcGrpName(), "");
    EXPECT_EQ(config.getDefaultBootImgName(), "");
    config.addProcessorGroup()->setName("g1");
    config.addProcessorGroup()->setName("g2");
    config.addBootImg()->setName("i1");
    config.addBootImg()->setName("i2");
    EXPECT_EQ(config.getDefaultProcGrpName(), "g1");
    EXPECT_EQ(config.getDefaultBootImgName(), "i1");
    config.setDefaultProcGrpName("none");
    config.setDefaultBootImgName("none");
    EXPECT_EQ(config.getDefaultProcGrpName(), "none");  // not checked against the groups
    EXPECT_EQ(config.getDefaultBootImgName(), "none");
    EXPECT_EQ(config.getProcGrpByName("none"), nullptr);
    EXPECT_EQ(config.getBootImgByName("none"), nullptr);
}

TEST(HTEQSystemConfig, LastOfANameWins) {
    HTEQSystemConfig config;
    for (int i = 0; i < 2; ++i) {
        config.addProcessorGroup()->setName("a");
        config.addBootImg()->setName("a");
    }
    HSTVector<HTEQProcessorGroup*> groups;
    HSTVector<HTEQBootImg*> images;
    config.getProcessorGroups(groups);
    config.getBootImgs(images);
    EXPECT_EQ(config.getProcGrpByName("a"), groups.at(1));
    EXPECT_EQ(config.getBootImgByName("a"), images.at(1));
    EXPECT_EQ(config.getProcGrpByName("A"), nullptr);
}

TEST(HTEQSystemConfig, NamesAndObjectsAreTwoLists) {
    HTEQSystemConfig config;
    config.addProcessorGroup("only a name");
    config.addProcessorGroup()->setName("an object");
    HSTVector<std::string> names;
    config.getProcessorGroups(names);
    EXPECT_EQ(names, HSTVector<std::string>{"only a name"});
    EXPECT_EQ(config.getDefaultProcGrpName(), "an object");
}

TEST(HTEQSystemConfig, Runtimes) {
    HTEQSystemConfig config;
    for (const char* runtime : {"ocl", "OCL", "", "Cpp", "c/c++", "other"}) config.addRuntime(runtime);
    HSTVector<std::string> plain = {"before"}, pretty;
    config.getRuntimes(plain);
    config.getRuntimesByPrettyName(pretty);
    EXPECT_EQ(plain, (HSTVector<std::string>{"before", "ocl", "OCL", "", "Cpp", "c/c++", "other"}));
    EXPECT_EQ(pretty, (HSTVector<std::string>{"OpenCL", "OpenCL", "", "C/C++", "c/c++", "other"}));
}
