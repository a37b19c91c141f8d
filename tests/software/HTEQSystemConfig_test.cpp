#include "platform/HTEQSystemConfig.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/JSONWriter.h"

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

TEST(HTEQSystemConfig, Document) {
    HTEQSystemConfig config;
    config.setName("n");
    config.setPrettyName("N");
    config.setDesc("d");
    config.setPrebuiltData("p");
    config.setSupportsQemu(true);
    config.addRuntime("ocl");
    HTEQProcessorGroup* group = config.addProcessorGroup();
    const struct {
        void (HTEQProcessorGroup::*set)(const std::string&);
        const char* text;
    } groupTexts[] = {
        {&HTEQProcessorGroup::setName, "g1"},
        {&HTEQProcessorGroup::setPrettyName, "g2"},
        {&HTEQProcessorGroup::setCpuType, "g3"},
        {&HTEQProcessorGroup::setArch, "not written"},
        {&HTEQProcessorGroup::setCpuInstance, "g4"},
        {&HTEQProcessorGroup::setOSPrettyName, "g5"},
        {&HTEQProcessorGroup::setOSName, "g6"},
        {&HTEQProcessorGroup::setIncludePaths, "g7"},
        {&HTEQProcessorGroup::setLibraryPaths, "g8"},
        {&HTEQProcessorGroup::setCompilerOptions, "g9"},
        {&HTEQProcessorGroup::setLinkerOptions, "ga"},
        {&HTEQProcessorGroup::setBSPIncludePaths, "gb"},
        {&HTEQProcessorGroup::setBSPLibraryPaths, "gc"},
        {&HTEQProcessorGroup::setSysRoot, "gd"},
    };
    for (const auto& t : groupTexts) (group->*t.set)(t.text);
    HTEQBootImg* image = config.addBootImg();
    const struct {
        void (HTEQBootImg::*set)(std::string);
        const char* text;
    } imageTexts[] = {
        {&HTEQBootImg::setName, "i1"},          {&HTEQBootImg::setType, "i2"},
        {&HTEQBootImg::setBif, "i3"},           {&HTEQBootImg::setImgData, "i4"},
        {&HTEQBootImg::setRootFS, "i5"},        {&HTEQBootImg::setBootMode, "i6"},
        {&HTEQBootImg::setMountPath, "i7"},     {&HTEQBootImg::setReadMe, "i8"},
        {&HTEQBootImg::setQemuArguments, "i9"}, {&HTEQBootImg::setQemuBoot, "ia"},
        {&HTEQBootImg::setQemuDevTree, "ib"},   {&HTEQBootImg::setHwBootBin, "ic"},
    };
    for (const auto& t : imageTexts) (image->*t.set)(t.text);

    teq_platform::JSONObjectWriter writer;
    config.toJSON(writer);
    std::ostringstream out;
    writer.write(out);
    EXPECT_EQ(out.str(), R"({
    "name": "n",
    "prettyName": "N",
    "description": "d",
    "defaultProcessorGroup": "g1",
    "defaultBootImage": "i1",
    "prebuiltData": "p",
    "qemu": "true",
    "processorGroups": [
        {
            "name": "g1",
            "prettyName": "g2",
            "cpuType": "g3",
            "cpuInstance": "g4",
            "osPrettyName": "g5",
            "osName": "g6",
            "osIncludePaths": "g7",
            "osLibraryPaths": "g8",
            "osCompilerOptions": "g9",
            "osLinkerOptions": "ga",
            "osHypervisorGuest": "false",
            "osBSPIncludePaths": "gb",
            "osBSPLibraryPaths": "gc",
            "osSysRoot": "gd"
        }
    ],
    "bootImages": [
        {
            "name": "i1",
            "type": "i2",
            "bif": "i3",
            "data": "i4",
            "rootFileSystem": "i5",
            "bootMode": "i6",
            "mountPath": "i7",
            "readMe": "i8",
            "qemuArgs": "i9",
            "qemuBoot": "ia",
            "qemuDevTree": "ib",
            "hwBootBin": "ic"
        }
    ],
    "runtimes": [
        "ocl"
    ]
}
)");
}
